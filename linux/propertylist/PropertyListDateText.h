#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/PropertyList.h"

/// The date of a text like "2024-02-29T12:34:56Z" (UTC, years 0001 to 9999); nothing for any other
/// text or a day that the calendar does not have.
std::optional<PropertyListDate> dateFromText(std::string_view text);

/// That text; nothing for a date between whole seconds or outside those years.
std::optional<std::string> textFromDate(PropertyListDate date);
