#pragma once

#include <string_view>

/// The region (ISO 3166-1, two capitals) of a country of the settings' table, by its name as
/// stored; empty for the row that stands for all others, for the user's own and for any other name.
std::string_view regionOfCountry(std::string_view name);
