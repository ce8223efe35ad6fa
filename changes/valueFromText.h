#pragma once

#include <optional>
#include <string_view>

#include "core/settingsTable.h"
#include "platform/foundation/PropertyList.h"

/// The value that a text gives for a setting: a number or one of its words (without regard to case
/// and blanks) for an integer, the text itself for a text. Nothing where it gives none. Any thread.
std::optional<PropertyListValue> valueFromText(const settings::Setting& setting,
                                               std::string_view text);
