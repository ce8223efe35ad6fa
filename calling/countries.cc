#include "calling/countries.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

using Country = std::pair<std::string_view, std::string_view>;

constexpr std::array<Country, 33> kCountries{{
    {"Algeria", "DZ"},
    {"Argentina", "AR"},
    {"Australia", "AU"},
    {"Brazil", "BR"},
    {"Canada", "CA"},
    {"Colombia", "CO"},
    {"Cyprus", "CY"},
    {"Czech Republic", "CZ"},
    {"Dominican Republic", "DO"},
    {"Finland", "FI"},
    {"France", "FR"},
    {"Germany", "DE"},
    {"Greece", "GR"},
    {"Iceland", "IS"},
    {"India", "IN"},
    {"Ireland", "IE"},
    {"Israel", "IL"},
    {"Italy", "IT"},
    {"Japan", "JP"},
    {"South Korea", "KR"},
    {"Malaysia", "MY"},
    {"Mexico", "MX"},
    {"Netherlands", "NL"},
    {"Pakistan", "PK"},
    {"Portugal", "PT"},
    {"Puerto Rico", "PR"},
    {"Republic of Ireland", "IE"},
    {"Romania", "RO"},
    {"Spain", "ES"},
    {"Sweden", "SE"},
    {"Taiwan", "TW"},
    {"UK ", "GB"},
    {"US", "US"},
}};

}  // namespace

std::string_view regionOfCountry(std::string_view name) {
  const auto* const found = std::ranges::find(kCountries, name, &Country::first);
  return found == kCountries.end() ? std::string_view() : found->second;
}
