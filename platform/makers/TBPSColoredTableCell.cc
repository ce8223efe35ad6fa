#include "platform/makers/TBPSColoredTableCell.h"

#include <utility>

constexpr ClassOf<TBPSColoredTableCell> TBPSColoredTableCell::classObject{"TBPSColoredTableCell"};

bool TBPSColoredTableCell::initWithStyleReuseIdentifierSpecifier(
    UITableViewCellStyle style, std::string reuseIdentifier,
    const std::shared_ptr<PSSpecifier>& specifier) {
  if (!PSTableCell::initWithStyleReuseIdentifierSpecifier(style, std::move(reuseIdentifier),
                                                          specifier)) {
    return false;
  }
  if (const auto color = UIColor::named(specifier->textForKey("backgroundColor").value_or(""))) {
    setBackgroundColor(*color);
  }
  if (const auto color = UIColor::named(specifier->textForKey("textColor").value_or(""))) {
    textLabel()->setTextColor(*color);
    setTintColor(*color);
  }
  return true;
}
