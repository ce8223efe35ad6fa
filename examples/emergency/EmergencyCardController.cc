#include "examples/emergency/EmergencyCardController.h"

#include <string>
#include <string_view>

#include "platform/foundation/method.h"
#include "platform/foundation/percentEncoding.h"
#include "platform/services.h"
#include "platform/uikit/UIApplication.h"

namespace {

constexpr auto kMethods = methods<EmergencyCardController>(
    method<&EmergencyCardController::readPreferenceValue>("readPreferenceValue:"),
    method<&EmergencyCardController::setPreferenceValueSpecifier>("setPreferenceValue:specifier:"),
    method<&EmergencyCardController::cardText>("cardText:"),
    method<&EmergencyCardController::call>("call"));

constexpr const char* kFile = "/User/Library/Preferences/example.emergency-card.plist";

PropertyListDictionary stored() {
  return services().files->dictionaryWithContentsOfFile(kFile).value_or(PropertyListDictionary());
}

std::string storedText(std::string_view key) {
  const auto settings = stored();
  const auto found = settings.find(key);
  return found == settings.end() ? "" : textOrNothing(found->second).value_or("");
}

}  // namespace

constexpr ClassOf<EmergencyCardController> EmergencyCardController::classObject{
    "EmergencyCardController", kMethods};

const PSSpecifiers& EmergencyCardController::specifiers() {
  if (!hasSpecifiers()) {
    setSpecifiers(loadSpecifiersFromPlistNameTarget("EmergencyCard", shared_from_this()));
  }
  return keptSpecifiers();
}

std::optional<PropertyListValue> EmergencyCardController::readPreferenceValue(
    const PSSpecifier& row) {
  return PropertyListValue(storedText(row.textForKey("key").value_or("")));
}

void EmergencyCardController::setPreferenceValueSpecifier(const PropertyListValue& value,
                                                          const PSSpecifier& row) {
  auto settings = stored();
  settings.insert_or_assign(row.textForKey("key").value_or(""), value);
  services().files->writeToFileAtomically(settings, kFile);
  reloadSpecifierIDAnimated("card", true);
}

std::optional<PropertyListValue> EmergencyCardController::cardText(const PSSpecifier& /*row*/) {
  const auto name = storedText("name");
  const auto number = storedText("number");
  if (name.empty() || number.empty()) {
    return std::nullopt;
  }
  return PropertyListValue(name + ": " + number);
}

void EmergencyCardController::call() {
  if (const auto number = storedText("number"); !number.empty()) {
    UIApplication::sharedApplication().openURL("tel:" + percentEncoded(number, "+"));
  }
}
