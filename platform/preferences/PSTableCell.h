#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSSpecifier.h"
#include "platform/uikit/UITableViewCell.h"

/// The cell of a pane's row: title, value, icon and badge from the row, which it reads only while
/// it is built. Main thread.
class PLATFORM_API PSTableCell : public Subclass<PSTableCell, UITableViewCell> {
 public:
  static const ClassOf<PSTableCell> classObject;

  /// The cell type of that name ("PSLinkCell", …); kDefault for a name that is not known.
  static PSCellType cellTypeFromString(std::string_view name);
  /// The name of a cell type.
  static std::string_view stringFromCellType(PSCellType type);
  /// The style in which a row of that type is built.
  static UITableViewCellStyle styleForCellType(PSCellType type);

  virtual bool initWithStyleReuseIdentifierSpecifier(UITableViewCellStyle style,
                                                     std::string reuseIdentifier,
                                                     const std::shared_ptr<PSSpecifier>& specifier);

  const std::shared_ptr<PSSpecifier>& specifier() const { return specifier_; }

  /// The height, in points, that the cell wants at that width; asked on rows with `dynamicHeight`.
  virtual CGFloat preferredHeightForWidth(CGFloat width);

  /// Whether a tap on the row does anything.
  bool isSelectable() const;

 protected:
  CGSize trailingSize() const override;
  void placeTrailing(CGRect room) override;

 private:
  void showBadge(const std::string& text);

  std::shared_ptr<PSSpecifier> specifier_;
  std::shared_ptr<UILabel> badge_;
};
