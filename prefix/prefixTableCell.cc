#include "prefix/prefixTableCell.h"

#include <utility>

constexpr ClassOf<prefixTableCell> prefixTableCell::classObject{"prefixTableCell"};

bool prefixTableCell::initWithStyleReuseIdentifierSpecifier(
    UITableViewCellStyle style, std::string reuseIdentifier,
    const std::shared_ptr<PSSpecifier>& specifier) {
  if (!PSTableCell::initWithStyleReuseIdentifierSpecifier(style, std::move(reuseIdentifier),
                                                          specifier)) {
    return false;
  }
  if (detailTextLabel()) {
    detailTextLabel()->setHidden(false);
    detailTextLabel()->setText(specifier->textForKey("detailText").value_or(""));
  }
  const auto checked = specifier->plistForKey("checked");
  if (checked && checked->boolValue()) {
    setAccessoryType(UITableViewCellAccessoryType::kCheckmark);
    return true;
  }
  setAccessoryType(UITableViewCellAccessoryType::kDisclosureIndicator);
  // An empty view in the indicator's place: room at the right end, and no indicator.
  auto room = alloc<UIView>();
  room->initWithFrame(CGRectMake(0, 0, 24, 11));
  setAccessoryView(room);
  return true;
}

bool prefixTableCell::initWithSpecifier(const std::shared_ptr<PSSpecifier>& specifier) {
  return initWithStyleReuseIdentifierSpecifier(UITableViewCellStyle::kValue1, "", specifier);
}
