#include "tools/settings/chosenCountry.h"

#include "changes/compactText.h"
#include "changes/findCountry.h"
#include "changes/inQuotes.h"

ChosenCountry chosenCountry(std::string_view name) {
  if (compactText(name) == compactText(kCustomRow)) {
    return {kCustomRow, {}};
  }
  const auto found = findCountry(name);
  if (found.rows.size() == 1) {
    return {std::string(found.rows.front()->first), {}};
  }
  if (found.rows.empty()) {
    return {{},
            "there is no country " + inQuotes(name) + " in the table" +
                (found.suggestion.empty() ? "; quietdial prefix lists them."
                                          : "; did you mean " + inQuotes(found.suggestion) + "?")};
  }
  std::string sentence = inQuotes(name) + " stands for several rows:";
  for (const auto* const row : found.rows) {
    sentence += (row == found.rows.front() ? " " : " and ") + inQuotes(row->first) + " (" +
                std::string(row->second) + ")";
  }
  return {{}, sentence + "; name one of them."};
}
