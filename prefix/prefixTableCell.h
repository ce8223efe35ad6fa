#pragma once

#include <memory>
#include <string>

#include "platform/preferences/PSTableCell.h"

/// A country or the custom row: title at the left, the row's `detailText` at the right, a check
/// mark where the row's `checked` is true. Main thread.
class prefixTableCell
    : public PSTableCell {  // NOLINT(readability-identifier-naming): resources name it so
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }

  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle style, std::string reuseIdentifier,
      const std::shared_ptr<PSSpecifier>& specifier) override;
  bool initWithSpecifier(const std::shared_ptr<PSSpecifier>& specifier);
};
