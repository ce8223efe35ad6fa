#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/PropertyList.h"

/// The value in a property-list file's bytes, XML or binary. Nothing when they are neither, are cut
/// or damaged, or pass a bound on size, nesting or memory. Any thread; independent of the locale.
std::optional<PropertyListValue> propertyListFromBytes(std::string_view bytes);

/// The same, where the outermost value is a dictionary.
std::optional<PropertyListDictionary> dictionaryFromBytes(std::string_view bytes);

/// The bytes of a file with that value: XML, or binary where XML cannot carry it. Read back, they
/// give the same value. Nothing when it passes a bound of the readers or holds a text that is not
/// UTF-8.
std::optional<std::string> bytesFromPropertyList(const PropertyListValue& value);
