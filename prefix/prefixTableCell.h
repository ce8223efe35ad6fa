#pragma once

#include <memory>
#include <string>

#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSTableCell.h"

/// A country or the custom row: title at the left, the row's `detailText` at the right, a check
/// mark where the row's `checked` is true. Main thread.
// Resources name it so. NOLINTNEXTLINE(readability-identifier-naming)
class prefixTableCell : public Subclass<prefixTableCell, PSTableCell> {
 public:
  static const ClassOf<prefixTableCell> classObject;

  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle style, std::string reuseIdentifier,
      const std::shared_ptr<PSSpecifier>& specifier) override;
  bool initWithSpecifier(const std::shared_ptr<PSSpecifier>& specifier);
};
