#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/settingsTable.h"
#include "platform/foundation/PropertyList.h"

/// What the settings' table says of values. Any thread.

/// What an absent key stands for; for the text of an integer, the words of that integer's default.
/// Nothing where it stands for nothing.
std::optional<PropertyListValue> defaultOf(const settings::Setting& setting);

/// The stored value, else the default.
std::optional<PropertyListValue> valueInForce(const PropertyListDictionary& stored,
                                              const settings::Setting& setting);

/// The value as it is stored where the setting may have it: an integer in its range as an integer,
/// a text, a list of texts. Nothing for any other value.
std::optional<PropertyListValue> accepted(const settings::Setting& setting,
                                          const PropertyListValue& value);

/// Whether something else than the default is stored.
bool isChanged(const PropertyListDictionary& stored, const settings::Setting& setting);

/// The word for an integer's value; empty where it has none.
std::string_view labelOf(const settings::Setting& setting, const PropertyListValue& value);

/// What the setting may be, in words: "0 (Swipe), 1 (Hold) or 2 (Show always)".
std::string valuesInWords(const settings::Setting& setting);

/// The setting that a text or a prefix goes with: it cannot be set alone. Null for one that can.
const settings::Setting* leaderOf(const settings::Setting& setting);

/// The text that is stored along with an integer (`setting.textKey`), from the values in force.
std::string wordsFor(const settings::Setting& setting, const PropertyListDictionary& stored);
