#include "platform/preferences/PSTextFieldSpecifier.h"

#include <utility>

constexpr ClassOf<PSTextFieldSpecifier> PSTextFieldSpecifier::classObject{"PSTextFieldSpecifier"};

std::shared_ptr<PSTextFieldSpecifier>
PSTextFieldSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
    std::string name, const std::shared_ptr<NSObject>& target, std::string_view set,
    std::string_view get, std::string_view detail, PSCellType cell, std::string_view edit) {
  auto specifier = allocInit<PSTextFieldSpecifier>();
  specifier->configure(std::move(name), target, set, get, detail, cell, edit);
  return specifier;
}

void PSTextFieldSpecifier::setKeyboardTypeAutoCapsAutoCorrection(
    UIKeyboardType keyboard, UITextAutocapitalizationType capitals,
    UITextAutocorrectionType correction) {
  keyboardType_ = keyboard;
  autoCaps_ = capitals;
  autoCorrection_ = correction;
}
