#pragma once

#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSTableCell.h"

/// A row with its `detailText` below the title, in as many lines as it takes; rows mark it with
/// `dynamicHeight`. Main thread.
class PLATFORM_API TBPSSubtitleTableCell : public Subclass<TBPSSubtitleTableCell, PSTableCell> {
 public:
  static const ClassOf<TBPSSubtitleTableCell> classObject;

  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle style, std::string reuseIdentifier,
      const std::shared_ptr<PSSpecifier>& specifier) override;
  CGFloat preferredHeightForWidth(CGFloat width) override;
  void layoutSubviews() override;

 private:
  std::shared_ptr<UILabel> subtitle_;
};
