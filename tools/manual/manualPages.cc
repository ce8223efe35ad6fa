#include "tools/manual/manualPages.h"

#include <CLI/CLI.hpp>

#include "changes/settingValues.h"
#include "core/preferenceStore.h"
#include "core/settingsTable.h"
#include "platform/foundation/asciiText.h"
#include "tools/commands.h"
#include "tools/propertyListJson.h"
#include "tools/runCommand.h"
#include "tools/version.h"

namespace {

// A line of text: what the formatter would obey is written out.
std::string escaped(std::string_view text) {
  std::string result = text.starts_with('.') || text.starts_with('\'') ? "\\&" : "";
  for (const char letter : text) {
    if (letter == '\\') {
      result += "\\e";
    } else if (letter == '-') {
      result += "\\-";
    } else if (letter == '"') {
      result += "\\(dq";
    } else {
      result += letter;
    }
  }
  return result;
}

std::string head(const std::string& title, int section, const std::string& name,
                 std::string_view summary) {
  return ".TH " + escaped(title) + " " + std::to_string(section) + " \"\" \"QuietDial " +
         std::string(kVersion) + "\"\n.SH NAME\n" + escaped(name) + " \\- " + escaped(summary) +
         "\n";
}

std::string section(const std::string& title) {
  return ".SH " + title + "\n";
}

// A term in bold and what it is.
std::string entry(const std::string& term, std::string_view text) {
  return ".TP\n.B \"" + escaped(term) + "\"\n" + escaped(text) + "\n";
}

std::string exampleLines(const std::vector<Example>& examples) {
  std::string text;
  for (const auto& [line, meaning] : examples) {
    text += entry(line, meaning);
  }
  return text.empty() ? text : section("EXAMPLES") + text;
}

std::string termFor(const CLI::Option& option) {
  if (option.get_positional()) {
    return option.get_name(true);
  }
  const bool takesValue = option.get_items_expected_max() > 0;
  return option.get_name(false, true) + (takesValue ? " " + option.get_type_name() : "");
}

std::string options(const CLI::App& app, bool positional) {
  std::string text;
  for (const auto* const option : app.get_options()) {
    if (option->get_positional() == positional) {
      text += entry(termFor(*option), option->get_description());
    }
  }
  return text;
}

}  // namespace

std::string programPage() {
  std::string text =
      head("QUIETDIAL", 1, "quietdial", "ask the network to hide your number, and set how") +
      section("SYNOPSIS") + ".B quietdial\n.I COMMAND\n[\n.I ARGUMENTS\n]\n" + section("COMMANDS");
  for (const auto& command : makeCommands()) {
    text += entry("quietdial-" + std::string(command->name()) + "(1)", command->summary());
  }
  return text + section("EXIT STATUS") + entry("0", "Done.") +
         entry("1", "It could not be done; a sentence on standard error says why.") +
         entry("2", "The arguments are not understood.") + "quietdial call has further ones.\n" +
         section("SEE ALSO") + "quietdial\\-settings\\-file(5)\n";
}

std::string commandPage(Command& command) {
  const auto app = parserFor(command);
  const std::string name = "quietdial-" + std::string(command.name());
  std::string synopsis = ".B quietdial " + escaped(command.name()) + "\n[\n.I OPTIONS\n]\n";
  for (const auto* const option : app->get_options()) {
    if (option->get_positional()) {
      const auto argument = ".I " + escaped(option->get_name(true)) + "\n";
      synopsis += option->get_required() ? argument : "[\n" + argument + "]\n";
    }
  }
  const auto arguments = options(*app, /*positional=*/true);
  const auto footer = app->get_footer();
  return head(inCapitals(name), 1, name, command.summary()) + section("SYNOPSIS") + synopsis +
         exampleLines(command.examples()) +
         (arguments.empty() ? "" : section("ARGUMENTS") + arguments) + section("OPTIONS") +
         options(*app, /*positional=*/false) +
         (footer.empty() ? "" : section("NOTES") + escaped(footer) + "\n") + section("SEE ALSO") +
         "quietdial(1), quietdial\\-settings\\-file(5)\n";
}

std::string settingsFilePage() {
  std::string text =
      head("QUIETDIAL-SETTINGS-FILE", 5, "quietdial-settings-file", "what QuietDial stores") +
      section("DESCRIPTION") +
      "The settings are one property list, XML or binary, below the device root (by default "
      "quietdial in $XDG_DATA_HOME, which is ~/.local/share where it is not set):\n.PP\n" +
      escaped(kSettingsPath) + "\n.PP\nIt is replaced whole at each change. Other keys stay.\n" +
      section("KEYS");
  for (const auto& setting : settings::kAll) {
    const auto standard = defaultOf(setting);
    const auto* const leader = leaderOf(setting);
    text += entry(std::string(setting.key),
                  std::string(setting.title) + ": " + valuesInWords(setting) + "." +
                      (standard ? " Default: " + printed(toJson(*standard)) + "." : "") +
                      (leader ? " Goes with " + std::string(leader->key) + "." : ""));
  }
  return text + section("SEE ALSO") + "quietdial\\-list(1), quietdial\\-set(1)\n";
}
