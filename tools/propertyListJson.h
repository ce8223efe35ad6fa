#pragma once

#include <optional>
#include <string>

#include <nlohmann/json.hpp>

#include "platform/foundation/PropertyList.h"

/// How the terminal program writes values. Members keep the order in which they are added.
using Json = nlohmann::ordered_json;

/// Integers as integers of up to 64 bits, reals so that they read back as the same double ("nan",
/// "inf" and "-inf" as {"real": …}), data as {"data": BASE64}, dates as {"date": ISO 8601}.
Json toJson(const PropertyListValue& value);
Json toJson(const PropertyListDictionary& dictionary);
/// Null for nothing.
Json toJson(const std::optional<PropertyListValue>& value);

/// On one line; what is no UTF-8 is shown with replacement characters rather than not at all.
std::string printed(const Json& value);
