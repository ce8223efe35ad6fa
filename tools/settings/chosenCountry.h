#pragma once

#include <string>
#include <string_view>

/// The row of the prefix page that a name leads to.
struct ChosenCountry {
  std::string name;   ///< As it is stored: a country of the table, or the custom row.
  std::string fault;  ///< Where there is not exactly one: why, as a sentence.
};

ChosenCountry chosenCountry(std::string_view name);
