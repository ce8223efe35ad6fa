#include <algorithm>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

#include "changes/nearestWord.h"
#include "tools/commands.h"
#include "tools/runCommand.h"
#include "tools/version.h"

namespace {

void printHelp(const Commands& commands, std::ostream& out) {
  constexpr int kColumn = 11;
  out << "Asks the network to hide your number when you call.\n"
         "\n"
         "Examples:\n"
         "  quietdial status                 what is set, and what would be dialled\n"
         "  quietdial prefix GB              choose the prefix that hides your number\n"
         "  quietdial set dialerMode hold    set a setting\n"
         "  quietdial call '0171 555 0134'   call without showing your number\n"
         "\n"
         "Usage: quietdial COMMAND [ARGUMENTS]\n"
         "\n"
         "Commands:\n";
  for (const auto& command : commands) {
    out << "  " << std::left << std::setw(kColumn) << command->name() << command->summary() << '\n';
  }
  out << "\n"
         "Options:\n"
         "  --help     This text; COMMAND --help tells of a command\n"
         "  --version  The version\n";
}

// Why a word is no command.
std::string faultOf(const std::string& word, const Commands& commands) {
  constexpr const char* kListed = "; quietdial --help lists them.";
  if (word.empty()) {
    return std::string("no command is given") + kListed;
  }
  std::vector<std::string> names;
  for (const auto& command : commands) {
    names.emplace_back(command->name());
  }
  const auto meant = nearestWord(word, names);
  return "there is no command \"" + word + '"' +
         (meant.empty() ? kListed : "; did you mean \"" + meant + "\"?");
}

bool showsColours() {
  const char* const terminal = std::getenv("TERM");
  const char* const noColour = std::getenv("NO_COLOR");
  return isatty(STDOUT_FILENO) != 0 && terminal && std::string_view(terminal) != "dumb" &&
         !(noColour && *noColour);
}

}  // namespace

int main(int count, char** values) {
  std::vector<std::string> words(values + 1, values + count);
  const std::string first = words.empty() ? "" : words.front();
  const auto commands = makeCommands();
  if (first == "--help" || first == "-h") {
    printHelp(commands, std::cout);
    return 0;
  }
  if (first == "--version") {
    std::cout << "quietdial " << kVersion << '\n';
    return 0;
  }
  const auto found = std::ranges::find(commands, first, &Command::name);
  if (found == commands.end()) {
    std::cerr << "quietdial: " << faultOf(first, commands) << '\n';
    return kNotUnderstood;
  }
  words.erase(words.begin());
  return runCommand(**found, words, {std::cin, std::cout, std::cerr, showsColours()});
}
