#include "tools/manual/bashCompletion.h"

#include <map>
#include <vector>

#include <CLI/CLI.hpp>

#include "changes/settingValues.h"
#include "core/settingsTable.h"
#include "platform/foundation/asciiText.h"
#include "prefix/prefixes.h"
#include "tools/commands.h"
#include "tools/runCommand.h"

namespace {

// Words one a line, in single quotes for the shell.
std::string shellList(const std::vector<std::string>& words) {
  std::string list = "$'";
  for (const auto& word : words) {
    for (const char letter : word + '\n') {
      list += letter == '\n'                     ? "\\n"
              : letter == '\'' || letter == '\\' ? "\\" + std::string(1, letter)
                                                 : std::string(1, letter);
    }
  }
  return list + "'";
}

std::vector<std::string> settableKeys(bool withLists) {
  std::vector<std::string> keys;
  for (const auto& setting : settings::kAll) {
    if (!leaderOf(setting) && (withLists || setting.kind != settings::Kind::kTextList)) {
      keys.emplace_back(setting.key);
    }
  }
  return keys;
}

std::vector<std::string> countries() {
  std::vector<std::string> names;
  for (const auto& row : prefixes) {
    names.emplace_back(trimmed(row.first));
  }
  return names;
}

std::vector<std::string> valuesOf(const settings::Setting& setting) {
  std::vector<std::string> values;
  for (int number = setting.least;
       setting.kind == settings::Kind::kInteger && number <= setting.greatest; ++number) {
    const auto label = labelOf(setting, number);
    values.push_back(label.empty() ? std::to_string(number) : lowered(label));
  }
  return setting.key == settings::kSelectedCountry.key ? countries() : values;
}

// What an argument, or an option's value, of that name may be; a shell command that fills
// COMPREPLY.
std::string completionFor(const std::string& argument, std::string_view command) {
  if (argument == "FILE") {
    return "_quietdial_files -f";
  }
  if (argument == "DIR") {
    return "_quietdial_files -d";
  }
  if (argument == "COUNTRY") {
    return "_quietdial_words " + shellList(countries());
  }
  if (argument == "KEY") {
    std::vector<std::string> all;
    for (const auto& setting : settings::kAll) {
      all.emplace_back(setting.key);
    }
    return "_quietdial_words " +
           shellList(command == "get" ? all : settableKeys(/*withLists=*/command == "reset"));
  }
  return argument == "VALUE" ? "_quietdial_value \"${COMP_WORDS[2]}\"" : ":";
}

std::string caseFor(Command& command) {
  const auto app = parserFor(command);
  std::vector<std::string> words;
  std::string values;
  std::vector<std::string> arguments;
  for (const auto* const option : app->get_options()) {
    if (option->get_positional()) {
      arguments.push_back(option->get_name(true));
      continue;
    }
    for (const auto& name : option->get_lnames()) {
      words.push_back("--" + name);
      if (option->get_items_expected_max() > 0) {
        values += "        --" + name + ") " +
                  completionFor(option->get_type_name(), command.name()) + "; return ;;\n";
      }
    }
  }
  std::string text = "    " + std::string(command.name()) + ")\n";
  if (!values.empty()) {
    text += "      case \"$previous\" in\n" + values + "      esac\n";
  }
  text +=
      "      [[ \"$current\" == -* ]] && { _quietdial_words " + shellList(words) + "; return; }\n";
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const bool isLast = i + 1 == arguments.size();
    text += "      (( COMP_CWORD " + std::string(isLast ? ">=" : "==") + " " +
            std::to_string(i + 2) + " )) && " + completionFor(arguments[i], command.name()) + "\n";
  }
  return text + "      ;;\n";
}

constexpr const char* kHelpers =
    R"shell(# Completes a word with those that begin as it does; $1 has one a line.
_quietdial_words() {
  local IFS=$'\n' word
  COMPREPLY=()
  for word in $1; do
    [[ "$word" == "$current"* ]] && COMPREPLY+=("$(printf '%q' "$word")")
  done
}
_quietdial_files() {
  local IFS=$'\n'
  compopt -o filenames 2>/dev/null
  COMPREPLY=($(compgen "$1" -- "$current"))
}
)shell";

}  // namespace

std::string bashCompletion() {
  std::string cases;
  std::vector<std::string> names;
  for (const auto& command : makeCommands()) {
    names.emplace_back(command->name());
    cases += caseFor(*command);
  }
  names.insert(names.end(), {"--help", "--version"});
  std::string values = "_quietdial_value() {\n  case \"$1\" in\n";
  for (const auto& setting : settings::kAll) {
    if (const auto words = valuesOf(setting); !words.empty()) {
      values +=
          "    " + std::string(setting.key) + ") _quietdial_words " + shellList(words) + " ;;\n";
    }
  }
  values += "  esac\n}\n";
  return "# bash completion for quietdial\n" + std::string(kHelpers) + values +
         "_quietdial() {\n"
         "  local current=\"${COMP_WORDS[COMP_CWORD]}\" previous=\"${COMP_WORDS[COMP_CWORD - "
         "1]}\"\n"
         "  COMPREPLY=()\n"
         "  (( COMP_CWORD == 1 )) && { _quietdial_words " +
         shellList(names) + "; return; }\n  case \"${COMP_WORDS[1]}\" in\n" + cases +
         "  esac\n  return 0\n}\ncomplete -F _quietdial quietdial\n";
}
