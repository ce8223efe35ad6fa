#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "changes/SettingsChange.h"

/// Why a file is not imported.
struct ImportRefusal {
  std::string place;     ///< Where in the file: "line 4, column 5" or "the key dialerMode".
  std::string sentence;  ///< What is wrong there.
};

/// Takes the settings of an exported file, or of the settings file of a phone (a property list, XML
/// or binary), over into the change; what the file does not set stays. Either all of them are taken
/// over, so that what goes together fits together, or the change is as it was and the refusal says
/// why. The words of an integer are made anew from it. Any thread.
std::optional<ImportRefusal> importSettings(std::string_view bytes, SettingsChange& change);
