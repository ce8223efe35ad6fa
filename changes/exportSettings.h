#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/settingsTable.h"
#include "platform/foundation/PropertyList.h"

/// The file that settings are exported as: one JSON object with `format` (kExportFormat), `version`
/// (kExportVersion) and `settings`, an object of the keys of the settings' table that are set.
inline constexpr std::string_view kExportFormat = "quietdial-settings";
inline constexpr int kExportVersion = 1;

struct ExportedSettings {
  std::string text;
  /// Stored, but with a value that the setting cannot have.
  std::vector<const settings::Setting*> leftOut;
};

/// Any thread.
ExportedSettings exportSettings(const PropertyListDictionary& stored);
