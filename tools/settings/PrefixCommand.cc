#include "tools/settings/PrefixCommand.h"

#include <algorithm>

#include <CLI/CLI.hpp>

#include "changes/settingValues.h"
#include "changes/valueFromText.h"
#include "prefix/prefixes.h"
#include "tools/propertyListJson.h"
#include "tools/settings/chosenCountry.h"
#include "tools/terminalStyle.h"

std::vector<Example> PrefixCommand::examples() const {
  return {{"quietdial prefix", "the table, with a star at the chosen row"},
          {"quietdial prefix canada", "a country by its name"},
          {"quietdial prefix GB", "or by its code"},
          {"quietdial prefix --custom '*31#'", "a prefix of your own"}};
}

void PrefixCommand::describeArguments(CLI::App& app) {
  auto* const country = app.add_option(
      "COUNTRY", country_,
      "A country of the table, in any case and without its blanks, or its two letters");
  app.add_option("--custom", custom_, "A prefix of your own")->type_name("TEXT")->excludes(country);
  app.add_flag("--json", isJson_, "The table as one JSON array");
}

int PrefixCommand::run(Streams streams) {
  if (custom_) {
    if (!valueFromText(settings::kCustomPrefix, *custom_)) {
      return fail(streams, "the prefix has to be a text.", kNotUnderstood);
    }
    return change(streams, [this](SettingsChange& change) {
      change.chooseCustom(*custom_);
      return true;
    });
  }
  if (!country_) {
    return printTable(streams);
  }
  const auto chosen = chosenCountry(*country_);
  if (!chosen.fault.empty()) {
    return fail(streams, chosen.fault, kNotUnderstood);
  }
  return change(streams, [&](SettingsChange& change) {
    change.set(settings::kSelectedCountry, PropertyListValue(chosen.name));
    return true;
  });
}

int PrefixCommand::printTable(Streams streams) const {
  const auto stored = readSettings(streams);
  if (!stored) {
    return kFailed;
  }
  const auto chosen = textOrNothing(valueInForce(*stored, settings::kSelectedCountry));
  std::vector<CountryPrefix> rows(prefixes.begin(), prefixes.end());
  const auto own = textOrNothing(valueInForce(*stored, settings::kCustomPrefix)).value_or("");
  rows.emplace_back(kCustomRow, own);
  if (isJson_) {
    Json list = Json::array();
    for (const auto& [country, prefix] : rows) {
      list.push_back({{"country", country}, {"prefix", prefix}, {"chosen", country == chosen}});
    }
    streams.out << printed(list) << '\n';
    return 0;
  }
  std::size_t width = 0;
  for (const auto& row : rows) {
    width = std::max(width, row.first.size());
  }
  for (const auto& [country, prefix] : rows) {
    const bool isChosen = country == chosen;
    const auto line = (isChosen ? "* " : "  ") + std::string(country) +
                      std::string(width - country.size() + 2, ' ') + onTerminal(prefix);
    streams.out << (isChosen ? bold(line, streams) : line) << '\n';
  }
  return 0;
}
