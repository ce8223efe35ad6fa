#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSTableCell.h"

/// A row's cell that wants to be half as high as the width that it is offered, and counts how many
/// of it were set up.
class HalfHighCell : public Subclass<HalfHighCell, PSTableCell> {
 public:
  static const ClassOf<HalfHighCell> classObject;

  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle style, std::string reuseIdentifier,
      const std::shared_ptr<PSSpecifier>& specifier) override {
    ++made;
    return PSTableCell::initWithStyleReuseIdentifierSpecifier(style, std::move(reuseIdentifier),
                                                              specifier);
  }
  CGFloat preferredHeightForWidth(CGFloat width) override { return width / 2; }

  inline static int made = 0;
};

inline constexpr ClassOf<HalfHighCell> HalfHighCell::classObject{"HalfHighCell"};
