#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "tools/call/CallCommand.h"
#include "tools/call/LinesCommand.h"
#include "tools/drive/DriveCommand.h"
#include "tools/gif/GifCommand.h"
#include "tools/version.h"

namespace {

constexpr std::string_view kUsage =
    "Usage: quietdial COMMAND [ARGUMENTS]\n"
    "\n"
    "Commands:\n"
    "  call       call a number and ask for yours to be hidden\n"
    "  lines      list what can place calls here\n"
    "  drive      run the settings panes without a window, under a script\n"
    "  gif        tell what an animated picture holds\n"
    "\n"
    "Options:\n"
    "  --help     this text; COMMAND --help tells of a command\n"
    "  --version  the version\n";

}  // namespace

int main(int count, char** values) {
  std::vector<std::string> words(values + 1, values + count);
  const std::string command = words.empty() ? "" : words.front();
  if (command == "--help" || command == "-h") {
    std::cout << kUsage;
    return 0;
  }
  if (command == "--version") {
    std::cout << "quietdial " << kVersion << '\n';
    return 0;
  }
  if (command == "call" || command == "lines" || command == "drive") {
    words.erase(words.begin());
  }
  if (command == "call") {
    return runCallCommand(words, std::cin, std::cout, std::cerr);
  }
  if (command == "lines") {
    return runLinesCommand(words, std::cout, std::cerr);
  }
  if (command == "drive") {
    return runDriveCommand(words, std::cin, std::cout, std::cerr);
  }
  if (command == "gif") {
    return runGifCommand({values + 2, static_cast<std::size_t>(count - 2)}, std::cout, std::cerr);
  }
  std::cerr << "quietdial: "
            << (command.empty() ? "no command is given" : "there is no command \"" + command + "\"")
            << "; quietdial --help lists them.\n";
  return 2;
}
