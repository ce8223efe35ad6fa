#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "tools/commands.h"
#include "tools/manual/bashCompletion.h"
#include "tools/manual/manualPages.h"

// Writes the terminal program's manual pages and completions into a folder, when it is built.

namespace {

bool write(const std::filesystem::path& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) {
    std::cerr << "quietdial-manual: " << path.string() << " cannot be written.\n";
  }
  return static_cast<bool>(file);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: quietdial-manual FOLDER\n";
    return 2;
  }
  const std::filesystem::path folder(arguments[1]);
  bool isWhole = write(folder / "quietdial.1", programPage()) &&
                 write(folder / "quietdial-settings-file.5", settingsFilePage()) &&
                 write(folder / "quietdial.bash", bashCompletion());
  for (const auto& command : makeCommands()) {
    const auto name = "quietdial-" + std::string(command->name()) + ".1";
    isWhole = isWhole && write(folder / name, commandPage(*command));
  }
  return isWhole ? 0 : 1;
}
