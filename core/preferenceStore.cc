#include "core/preferenceStore.h"

#include <string>

#include "platform/foundation/CFNotificationCenter.h"
#include "platform/services.h"

namespace {

PropertyListDictionary storedSettings() {
  return services()
      .files->dictionaryWithContentsOfFile(std::string(kSettingsPath))
      .value_or(PropertyListDictionary{});
}

}  // namespace

std::optional<PropertyListValue> readPreference(std::string_view key) {
  const auto settings = storedSettings();
  const auto found = settings.find(key);
  return found == settings.end() ? std::nullopt : std::optional(found->second);
}

void writePreference(std::string_view key, const PropertyListValue& value) {
  storePreference(key, value);
  CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(),
                                       kPreferencesChangedNotification, true);
}

void storePreference(std::string_view key, const PropertyListValue& value) {
  auto settings = storedSettings();
  settings.insert_or_assign(std::string(key), value);
  services().files->writeToFileAtomically(settings, std::string(kSettingsPath));
}
