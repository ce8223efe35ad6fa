#include "tools/call/LinesCommand.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "linux/lines/Lines.h"

namespace {

nlohmann::ordered_json describe(Line& line, const Line* chosen) {
  const LineFacts facts = line.facts();
  return {{"line", line.name()},
          {"title", line.title()},
          {"hides", facts.hidesByItself},
          {"auto", &line == chosen}};
}

std::string sentenceOf(Line& line, const Line* chosen) {
  const LineFacts facts = line.facts();
  return line.name() + ": " + line.title() +
         (facts.hidesByItself ? "; hides the number by itself" : "; takes a prefix") +
         (&line == chosen ? "; what a call takes" : "");
}

}  // namespace

int runLinesCommand(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  CLI::App app("Lists what can place calls here.", "quietdial lines");
  bool isJson = false;
  app.add_flag("--json", isJson, "As one JSON array");
  try {
    app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
  } catch (const CLI::CallForHelp&) {
    out << app.help();
    return 0;
  } catch (const CLI::ParseError& error) {
    err << "quietdial lines: " << error.what() << '\n';
    return 2;
  }
  const Lines lines;
  const auto choice = lines.forCall("auto", false);
  const Line* chosen = choice.empty() ? nullptr : choice.front().get();
  if (isJson) {
    auto list = nlohmann::ordered_json::array();
    for (const auto& found : lines.all()) {
      list.push_back(describe(*found.line, chosen));
    }
    out << list.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
    return 0;
  }
  for (const auto& found : lines.all()) {
    out << sentenceOf(*found.line, chosen) << '\n';
  }
  if (lines.all().empty()) {
    out << "Nothing here can place calls.\n";
  }
  return 0;
}
