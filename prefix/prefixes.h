#pragma once

#include <array>
#include <string_view>
#include <utility>

#include "core/export.h"

/// A country's name, which is also what is stored as the chosen country, and the dial prefix that
/// hides the caller ID there. Blanks at the end of either are part of the value.
using CountryPrefix = std::pair<std::string_view, std::string_view>;

/// Every country with its prefix, in the order in which the pane shows them; the last entry stands
/// for all others. Constant data.
extern QD_EXPORT const std::array<CountryPrefix, 34> prefixes;

/// The row below the table, for a prefix of the user's own; stored as the chosen country when it is
/// chosen.
inline constexpr const char* kCustomRow = "Custom (enter below)";
