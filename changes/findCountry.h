#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "prefix/prefixes.h"

/// What a name for a country of the prefix table leads to.
struct FoundCountry {
  /// One row, or several where the name stands for more than one. Empty for none.
  std::vector<const CountryPrefix*> rows;
  /// Where there is none: the row that was probably meant; empty for no idea.
  std::string suggestion;
};

/// A row by its name as it is stored, else without regard to the case of letters and to blanks,
/// else by its region's code (ISO 3166-1, two letters). Any thread.
FoundCountry findCountry(std::string_view name);
