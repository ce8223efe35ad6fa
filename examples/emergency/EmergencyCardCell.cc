#include "examples/emergency/EmergencyCardCell.h"

#include <utility>

constexpr ClassOf<EmergencyCardCell> EmergencyCardCell::classObject{"EmergencyCardCell"};

bool EmergencyCardCell::initWithStyleReuseIdentifierSpecifier(
    UITableViewCellStyle style, std::string reuseIdentifier,
    const std::shared_ptr<PSSpecifier>& specifier) {
  if (!PSTableCell::initWithStyleReuseIdentifierSpecifier(style, std::move(reuseIdentifier),
                                                          specifier)) {
    return false;
  }
  if (const auto text = textOrNothing(specifier->value())) {
    textLabel()->setText(*text);
    textLabel()->setTextColor(UIColor::whiteColor());
    setBackgroundColor(UIColor{0.75, 0.1, 0.1});
  }
  return true;
}
