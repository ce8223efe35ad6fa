#include "prefix/QDCountryPrefixController.h"

#include <string>
#include <utility>

#include "core/preferenceStore.h"
#include "platform/foundation/method.h"
#include "platform/preferences/PSTextFieldSpecifier.h"
#include "prefix/prefixTableCell.h"
#include "prefix/prefixes.h"

namespace {

using Pane = QDCountryPrefixController;

constexpr std::string_view kGetter = "getValueForSpecifier:";
constexpr std::string_view kSetter = "setValue:forSpecifier:";
constexpr std::string_view kAction = "cellSelected:";

constexpr auto kMethods = methods<Pane>(method<&Pane::getValueForSpecifier>(kGetter),
                                        method<&Pane::setValueForSpecifier>(kSetter),
                                        method<&Pane::cellSelected>(kAction));

constexpr std::string_view kCountryKey = "selectedCountry";
constexpr std::string_view kPrefixKey = "selectedPrefix";
constexpr std::string_view kCustomKey = "customPrefix";

constexpr const char* kAdvice =
    "When none of the prefix codes above work for you, please search google for the right prefix "
    "code and "
    "enter it above.\n\nIf your country is not listed above and you know the prefix code, please "
    "let us know "
    "and we'll try to add it in the next update. ";

}  // namespace

constexpr ClassOf<QDCountryPrefixController> QDCountryPrefixController::classObject{
    "QDCountryPrefixController", kMethods};

bool QDCountryPrefixController::init() {
  if (!PSListController::init()) {
    return false;
  }
  selectedCountry_ = storedOrDefault(kCountryKey, "Most other counties");
  selectedPrefix_ = storedOrDefault(kPrefixKey, "#31#");
  customPrefix_ = storedOrDefault(kCustomKey, "");
  return true;
}

PropertyListValue QDCountryPrefixController::storedOrDefault(std::string_view key,
                                                             std::string_view otherwise) {
  if (const auto stored = readPreferenceValue(key)) {
    return *stored;
  }
  PropertyListValue value{std::string(otherwise)};
  setPreferenceValueForKey(value, key);
  return value;
}

const PSSpecifiers& QDCountryPrefixController::specifiers() {
  if (hasSpecifiers()) {
    return keptSpecifiers();
  }
  const auto self = shared_from_this();
  PSSpecifiers rows{PSSpecifier::groupSpecifierWithName("Prefixes")};
  for (const auto& [country, prefix] : prefixes) {
    auto row = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        std::string(country), self, kSetter, kGetter, "", PSCellType::kListItem, "");
    row->setPropertyForKey(PropertyListValue(std::string(prefix)), "detailText");
    addPrefixRow(rows, row);
  }
  auto advice = PSSpecifier::groupSpecifierWithName("");
  advice->setPropertyForKey(PropertyListValue(kAdvice), "footerText");
  rows.push_back(advice);
  addPrefixRow(rows, PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
                         kCustomRow, self, "", "", "", PSCellType::kTitleValue, ""));
  rows.push_back(makeField());
  setSpecifiers(std::move(rows));
  return keptSpecifiers();
}

void QDCountryPrefixController::addPrefixRow(PSSpecifiers& rows,
                                             const std::shared_ptr<PSSpecifier>& row) {
  const bool chosen = selectedCountry_ == PropertyListValue(row->identifier());
  row->setPropertyForKey(&prefixTableCell::classObject, "cellClass");
  row->setPropertyForKey(PropertyListValue(chosen ? 1 : 0), "checked");
  row->setAction(kAction);
  if (chosen) {
    selectedSpecifier_ = row;
  }
  rows.push_back(row);
}

std::shared_ptr<PSSpecifier> QDCountryPrefixController::makeField() {
  auto field = PSTextFieldSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      "", shared_from_this(), kSetter, kGetter, "",
      PSTableCell::cellTypeFromString("PSEditTextCell"), "");
  field->setPlaceholder("Enter your custom prefix here");
  field->setKeyboardTypeAutoCapsAutoCorrection(UIKeyboardType::kPhonePad,
                                               UITextAutocapitalizationType::kNone,
                                               UITextAutocorrectionType::kNo);
  return field;
}

std::optional<PropertyListValue> QDCountryPrefixController::getValueForSpecifier(
    const PSSpecifier& /*specifier*/) {
  return customPrefix_;
}

void QDCountryPrefixController::setValueForSpecifier(const PropertyListValue& value,
                                                     const PSSpecifier& /*specifier*/) {
  customPrefix_ = value;
  if (selectedCountry_ == PropertyListValue(kCustomRow)) {
    selectedPrefix_ = customPrefix_;
    setPreferenceValueForKey(selectedPrefix_, kPrefixKey);
  }
  setPreferenceValueForKey(value, kCustomKey);
}

void QDCountryPrefixController::cellSelected(const std::shared_ptr<PSSpecifier>& specifier) {
  if (selectedSpecifier_) {
    selectedSpecifier_->setPropertyForKey(PropertyListValue(0), "checked");
    reloadSpecifier(selectedSpecifier_);
  }
  selectedSpecifier_ = specifier;
  selectedSpecifier_->setPropertyForKey(PropertyListValue(1), "checked");
  reloadSpecifier(selectedSpecifier_);
  selectedPrefix_ = specifier->plistForKey("detailText").value_or(customPrefix_);
  selectedCountry_ = PropertyListValue(specifier->identifier());
  setPreferenceValueForKey(selectedCountry_, kCountryKey);
  setPreferenceValueForKey(selectedPrefix_, kPrefixKey);
}

void QDCountryPrefixController::setSelectedSpecifier(std::shared_ptr<PSSpecifier> specifier) {
  selectedSpecifier_ = std::move(specifier);
}

void QDCountryPrefixController::setSelectedCountry(PropertyListValue country) {
  selectedCountry_ = std::move(country);
}

void QDCountryPrefixController::setSelectedPrefix(PropertyListValue prefix) {
  selectedPrefix_ = std::move(prefix);
}

void QDCountryPrefixController::setCustomPrefix(PropertyListValue prefix) {
  customPrefix_ = std::move(prefix);
}

std::optional<PropertyListValue> QDCountryPrefixController::readPreferenceValue(
    std::string_view key) {
  return readPreference(key);
}

void QDCountryPrefixController::setPreferenceValueForKey(const PropertyListValue& value,
                                                         std::string_view key) {
  writePreference(key, value);
}
