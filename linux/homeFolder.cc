#include "linux/homeFolder.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>
#include <vector>

std::optional<std::string> homeFolder() {
  if (const char* home = std::getenv("HOME"); home && *home == '/') {
    return home;
  }
  std::vector<char> buffer(16384);
  passwd entry{};
  passwd* found = nullptr;
  if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found ||
      *entry.pw_dir != '/') {
    return std::nullopt;
  }
  return entry.pw_dir;
}
