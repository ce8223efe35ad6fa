#include "tools/runCommand.h"

#include <algorithm>

#include <CLI/CLI.hpp>

namespace {

std::string descriptionOf(const Command& command) {
  std::string text(command.summary());
  const auto examples = command.examples();
  if (!examples.empty()) {
    text += "\n\nExamples:\n";
  }
  std::size_t width = 0;
  for (const auto& example : examples) {
    width = std::max(width, example.line.size());
  }
  for (const auto& [line, meaning] : examples) {
    text.append("  ").append(line).append(width - line.size() + 2, ' ');
    text.append(meaning).append("\n");
  }
  return text;
}

}  // namespace

std::shared_ptr<CLI::App> parserFor(Command& command) {
  const std::string name = "quietdial " + std::string(command.name());
  auto app = std::make_shared<CLI::App>(descriptionOf(command), name);
  app->failure_message([name](const CLI::App* /*app*/, const CLI::Error& error) {
    return name + ": " + error.what() + '\n';
  });
  command.describe(*app);
  return app;
}

int runCommand(Command& command, const std::vector<std::string>& words, Streams streams) {
  const auto app = parserFor(command);
  try {
    // The parser takes the words from the back.
    app->parse(std::vector<std::string>(words.rbegin(), words.rend()));
  } catch (const CLI::ParseError& error) {
    return app->exit(error, streams.out, streams.err) == 0 ? 0 : kNotUnderstood;
  }
  return command.run(streams);
}
