#include "changes/findCountry.h"

#include <algorithm>

#include "calling/countries.h"
#include "changes/compactText.h"
#include "changes/nearestWord.h"
#include "platform/foundation/asciiText.h"

namespace {

template <class Test>
std::vector<const CountryPrefix*> rowsThat(Test test) {
  std::vector<const CountryPrefix*> rows;
  for (const auto& row : prefixes) {
    if (test(row.first)) {
      rows.push_back(&row);
    }
  }
  return rows;
}

}  // namespace

FoundCountry findCountry(std::string_view name) {
  if (auto rows = rowsThat([&](auto country) { return country == name; }); !rows.empty()) {
    return {std::move(rows), {}};
  }
  const auto wanted = compactText(name);
  if (auto rows = rowsThat([&](auto country) { return compactText(country) == wanted; });
      !rows.empty()) {
    return {std::move(rows), {}};
  }
  const auto region = inCapitals(trimmed(name));
  if (auto rows = rowsThat(
          [&](auto country) { return !region.empty() && regionOfCountry(country) == region; });
      !rows.empty()) {
    return {std::move(rows), {}};
  }
  std::vector<std::string> names;
  std::ranges::transform(prefixes, std::back_inserter(names),
                         [](const CountryPrefix& row) { return std::string(trimmed(row.first)); });
  return {{}, nearestWord(trimmed(name), names)};
}
