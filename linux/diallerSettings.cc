#include "linux/diallerSettings.h"

#include <optional>
#include <variant>

#include "core/settingsTable.h"
#include "linux/storedSettings.h"

namespace {

// The stored number where it is one of the setting's; the default of an absent one.
std::optional<int> numberOf(const PropertyListDictionary& stored,
                            const settings::Setting& setting) {
  const auto entry = stored.find(setting.key);
  if (entry == stored.end()) {
    return std::get<int>(setting.defaultValue);
  }
  const auto number = entry->second.integerValue();
  if (!number || *number < setting.least || *number > setting.greatest) {
    return std::nullopt;
  }
  return static_cast<int>(*number);
}

CallMode modeOf(const PropertyListDictionary& stored, const settings::Setting& setting) {
  return static_cast<CallMode>(
      numberOf(stored, setting).value_or(static_cast<int>(CallMode::kAlways)));
}

int buttonOf(const PropertyListDictionary& stored, const settings::Setting& setting) {
  return numberOf(stored, setting).value_or(setting.least);
}

std::string textOf(const PropertyListDictionary& stored, const settings::Setting& setting) {
  const auto entry = stored.find(setting.key);
  return entry == stored.end() ? std::string() : textOrNothing(entry->second).value_or("");
}

}  // namespace

DiallerSettings readDiallerSettings(const DevicePaths& paths) {
  const auto stored = readStoredSettings(paths).settings;
  return {
      .keypad = {modeOf(stored, settings::kDialerMode),
                 buttonOf(stored, settings::kDialButtonStyle)},
      .call = {modeOf(stored, settings::kSystemwideStyle),
               buttonOf(stored, settings::kSystemwideButtonStyle)},
      .question = textOf(stored, settings::kCustomText),
      .twoButtonQuestion = textOf(stored, settings::kSystemWideTwoButtonText),
  };
}
