#include "linux/callSettings.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "core/settingsTable.h"
#include "linux/storedSettings.h"

namespace {

std::string defaultText(const settings::Setting& setting) {
  return std::string(std::get<std::string_view>(setting.defaultValue));
}

// The stored text, or the default of an absent one; nothing where something else is stored.
std::optional<std::string> textOf(const PropertyListDictionary& stored,
                                  const settings::Setting& setting) {
  const auto entry = stored.find(setting.key);
  if (entry == stored.end()) {
    return defaultText(setting);
  }
  return textOrNothing(entry->second);
}

}  // namespace

CallSettings readCallSettings(const DevicePaths& paths) {
  CallSettings result{
      .areReadable = true,
      .prefix = defaultText(settings::kSelectedPrefix),
      .customPrefix = defaultText(settings::kCustomPrefix),
      .country = defaultText(settings::kSelectedCountry),
  };
  const auto stored = readStoredSettings(paths);
  if (stored.state == StoredSettings::State::kAbsent) {
    return result;
  }
  const auto prefix = stored.state == StoredSettings::State::kRead
                          ? textOf(stored.settings, settings::kSelectedPrefix)
                          : std::nullopt;
  result.areReadable = prefix.has_value();
  if (prefix) {
    result.prefix = *prefix;
    result.customPrefix =
        textOf(stored.settings, settings::kCustomPrefix).value_or(result.customPrefix);
    result.country = textOf(stored.settings, settings::kSelectedCountry).value_or(result.country);
  }
  return result;
}

std::string localeRegion() {
  for (const auto* variable : {"LC_ALL", "LC_TELEPHONE", "LANG"}) {
    const char* value = std::getenv(variable);
    if (!value || !*value) {
      continue;
    }
    // LANGUAGE_REGION.ENCODING@VARIANT
    const std::string_view locale(value);
    const auto start = locale.find('_');
    const auto region =
        start == std::string_view::npos
            ? std::string_view()
            : locale.substr(start + 1, locale.find_first_of(".@", start) - start - 1);
    const bool isRegion = region.size() == 2 && std::ranges::all_of(region, [](char letter) {
                            return letter >= 'A' && letter <= 'Z';
                          });
    return isRegion ? std::string(region) : std::string();
  }
  return {};
}
