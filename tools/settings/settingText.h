#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "changes/SettingsChange.h"

/// A value as it is shown to people: a text in quotes with what a terminal would obey written out,
/// an integer with its word, "not set" for nothing.
std::string shown(const settings::Setting& setting, const std::optional<PropertyListValue>& value);

/// A line for each: "dialerMode: 0 (Swipe) -> 1 (Hold)".
std::string textOf(const std::vector<SettingsDifference>& differences);

/// The key's setting, or why there is none, with what was probably meant.
struct KnownSetting {
  const settings::Setting* setting = nullptr;
  std::string fault;
};
KnownSetting settingFor(std::string_view key);

/// The same for one that can be set, or reset, by itself.
KnownSetting leadingSettingFor(std::string_view key);
