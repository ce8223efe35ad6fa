#include "linux/findProgram.h"

#include <algorithm>
#include <filesystem>
#include <unistd.h>

#include "linux/StartEnvironment.h"

namespace {

bool isProgram(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error) && access(path.c_str(), X_OK) == 0;
}

}  // namespace

std::optional<std::string> findProgram(std::string_view name, std::string_view furtherFolders) {
  for (auto folders : {StartEnvironment::shared().value("PATH").value_or(""), furtherFolders}) {
    while (!folders.empty()) {
      const auto length = std::min(folders.find(':'), folders.size());
      const auto folder = folders.substr(0, length);
      folders.remove_prefix(std::min(length + 1, folders.size()));
      std::string path = std::string(folder) + "/" + std::string(name);
      if (folder.starts_with('/') && isProgram(path)) {
        return path;
      }
    }
  }
  return std::nullopt;
}
