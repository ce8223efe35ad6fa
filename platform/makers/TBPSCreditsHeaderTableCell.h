#pragma once

#include <array>
#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSTableCell.h"

/// The maker's logo, and below it the two makers side by side with their names. Reads the row's
/// properties `logo`, `head1` and `head2`, device paths of pictures, and `head1Name` and
/// `head2Name`. The row's title is said, not shown. A picture that is missing leaves its place out,
/// with its name. Rows mark it with `dynamicHeight`. Main thread.
class PLATFORM_API TBPSCreditsHeaderTableCell
    : public Subclass<TBPSCreditsHeaderTableCell, PSTableCell> {
 public:
  static const ClassOf<TBPSCreditsHeaderTableCell> classObject;

  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle style, std::string reuseIdentifier,
      const std::shared_ptr<PSSpecifier>& specifier) override;
  CGFloat preferredHeightForWidth(CGFloat width) override;
  void layoutSubviews() override;

 private:
  struct Head {
    std::shared_ptr<UIImageView> picture;
    std::shared_ptr<UILabel> name;
  };

  CGSize logoSizeForWidth(CGFloat width) const;
  CGFloat nameHeight() const;
  CGFloat headsHeight() const;

  std::shared_ptr<UIImageView> logo_;
  std::array<Head, 2> heads_;
};
