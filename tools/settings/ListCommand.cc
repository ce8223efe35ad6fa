#include "tools/settings/ListCommand.h"

#include <algorithm>
#include <array>
#include <iomanip>

#include <CLI/CLI.hpp>

#include "changes/settingValues.h"
#include "tools/propertyListJson.h"
#include "tools/settings/settingText.h"
#include "tools/terminalStyle.h"

namespace {

using Row = std::array<std::string, 4>;

Json report(const PropertyListDictionary& stored) {
  Json list = Json::array();
  for (const auto& setting : settings::kAll) {
    list.push_back({{"key", setting.key},
                    {"title", setting.title},
                    {"value", toJson(valueInForce(stored, setting))},
                    {"default", toJson(defaultOf(setting))},
                    {"changed", isChanged(stored, setting)}});
  }
  return list;
}

std::vector<Row> rowsFor(const PropertyListDictionary& stored) {
  std::vector<Row> rows{{"KEY", "VALUE", "DEFAULT", "CHANGED"}};
  for (const auto& setting : settings::kAll) {
    rows.push_back({std::string(setting.key), shown(setting, valueInForce(stored, setting)),
                    shown(setting, defaultOf(setting)), isChanged(stored, setting) ? "yes" : "no"});
  }
  return rows;
}

void printTable(const std::vector<Row>& rows, Streams streams) {
  std::array<std::size_t, 4> widths{};
  for (const auto& row : rows) {
    for (std::size_t column = 0; column < row.size(); ++column) {
      widths.at(column) = std::max(widths.at(column), widthOf(row.at(column)));
    }
  }
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t column = 0; column + 1 < row.size(); ++column) {
      line += row.at(column) + std::string(widths.at(column) - widthOf(row.at(column)) + 2, ' ');
    }
    line += row.back();
    const bool stands = &row == &rows.front() || row.back() == "yes";
    streams.out << (stands ? bold(line, streams) : line) << '\n';
  }
}

}  // namespace

std::vector<Example> ListCommand::examples() const {
  return {{"quietdial list", "a table"}, {"quietdial list --json", "the same for programs"}};
}

void ListCommand::describeArguments(CLI::App& app) {
  app.add_flag("--json", isJson_,
               "As one JSON array of objects with key, title, value, default and changed");
}

int ListCommand::run(Streams streams) {
  const auto stored = readSettings(streams);
  if (!stored) {
    return kFailed;
  }
  if (isJson_) {
    streams.out << printed(report(*stored)) << '\n';
  } else {
    printTable(rowsFor(*stored), streams);
  }
  return 0;
}
