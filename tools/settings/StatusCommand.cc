#include "tools/settings/StatusCommand.h"

#include <algorithm>
#include <array>
#include <utility>

#include <CLI/CLI.hpp>

#include "calling/exampleNumber.h"
#include "changes/settingValues.h"
#include "tools/call/CallReport.h"
#include "tools/propertyListJson.h"
#include "tools/settings/SettingsStatus.h"
#include "tools/settings/settingText.h"
#include "tools/terminalStyle.h"

namespace {

Json report(const SettingsStatus& status) {
  Json values = Json::object();
  for (const auto& setting : settings::kAll) {
    values[std::string(setting.key)] = toJson(valueInForce(status.settings, setting));
  }
  Json warnings = Json::array();
  for (const auto& [code, sentence] : status.warnings) {
    warnings.push_back({{"code", code}, {"sentence", sentence}});
  }
  return {{"settings", std::move(values)},
          {"example", jsonOf(status.example, "")},
          {"through", status.lineTitle.empty() ? Json() : Json(status.lineTitle)},
          {"warnings", std::move(warnings)}};
}

std::string exampleSentence(const SettingsStatus& status) {
  const std::string number = kExampleNumber;
  if (status.example.refusal) {
    return number + " would not be called.";
  }
  return number + " would be dialled as " + onTerminal(status.example.dial) +
         (status.lineTitle.empty() ? "." : " through " + onTerminal(status.lineTitle) + ".");
}

using Row = std::pair<std::string, std::string>;

// What the first page shows of each choice, and the texts, by the titles that people know.
std::vector<Row> rowsFor(const PropertyListDictionary& stored) {
  std::vector<Row> rows;
  for (const auto& setting : settings::kAll) {
    const auto* const leader = leaderOf(setting);
    const std::string title(setting.title);
    if (setting.key == settings::kSelectedPrefix.key) {
      rows.emplace_back(title, shown(setting, valueInForce(stored, setting)) + " for " +
                                   shown(*leader, valueInForce(stored, *leader)));
    } else if (leader) {
      rows.emplace_back(title, wordsFor(*leader, stored));
    } else if (setting.title == settings::kTextTitle) {
      rows.emplace_back(title, shown(setting, valueInForce(stored, setting)));
    }
  }
  return rows;
}

void printWords(const SettingsStatus& status, Streams streams) {
  const auto rows = rowsFor(status.settings);
  std::size_t width = 0;
  for (const auto& row : rows) {
    width = std::max(width, row.first.size());
  }
  for (const auto& [title, words] : rows) {
    streams.out << title << std::string(width - title.size() + 2, ' ') << words << '\n';
  }
  streams.out << '\n' << exampleSentence(status) << '\n';
  for (const auto& warning : status.warnings) {
    streams.out << warningColour("Warning:", streams) << ' ' << warning.sentence << '\n';
  }
}

}  // namespace

std::vector<Example> StatusCommand::examples() const {
  return {{"quietdial status", "in words"}, {"quietdial status --json", "for programs"}};
}

void StatusCommand::describeArguments(CLI::App& app) {
  app.add_flag("--json", isJson_,
               "As one JSON object with settings, example, through and warnings");
}

int StatusCommand::run(Streams streams) {
  const auto status = findSettingsStatus(paths());
  if (isJson_) {
    streams.out << printed(report(status)) << '\n';
  } else {
    printWords(status, streams);
  }
  return 0;
}
