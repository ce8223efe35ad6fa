#include "tools/call/LinesCommand.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "linux/lines/Lines.h"

namespace {

nlohmann::ordered_json report(Line& line, const Line* chosen) {
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

std::vector<Example> LinesCommand::examples() const {
  return {{"quietdial lines", "GNOME Calls, modems, and so on"}};
}

void LinesCommand::describe(CLI::App& app) {
  app.add_flag("--json", isJson_, "As one JSON array");
}

int LinesCommand::run(Streams streams) {
  const Lines lines;
  const auto choice = lines.forCall("auto", false);
  const Line* chosen = choice.empty() ? nullptr : choice.front().get();
  if (isJson_) {
    auto list = nlohmann::ordered_json::array();
    for (const auto& found : lines.all()) {
      list.push_back(report(*found.line, chosen));
    }
    streams.out << list.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace)
                << '\n';
    return 0;
  }
  for (const auto& found : lines.all()) {
    streams.out << sentenceOf(*found.line, chosen) << '\n';
  }
  if (lines.all().empty()) {
    streams.out << "Nothing here can place calls.\n";
  }
  return 0;
}
