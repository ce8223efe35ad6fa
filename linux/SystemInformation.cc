#include "linux/SystemInformation.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string_view>
#include <utility>

#include <sys/utsname.h>

#include "linux/readFile.h"
#include "platform/foundation/asciiText.h"

namespace {

constexpr std::size_t kReleaseFileBound = 65536;
constexpr std::size_t kLongestText = 64;

// What stands for the variable in a release file (os-release(5)): a shell assignment, perhaps
// quoted.
std::string valueIn(const std::string& contents, const std::string& variable) {
  std::istringstream lines(contents);
  std::string value;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(variable + "=")) {
      value = line.substr(variable.size() + 1);
    }
  }
  if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
      value.back() == value.front()) {
    value = value.substr(1, value.size() - 2);
  }
  std::erase_if(value, [](char letter) { return letter < ' ' || letter > '~' || letter == '\\'; });
  return value.substr(0, kLongestText);
}

// The numbers that a release begins with: "6.1.0-27-amd64" is 6.1.0-27.
std::string leadingNumbers(std::string_view release) {
  const auto end = release.find_first_not_of("0123456789.-");
  std::string numbers(release.substr(0, std::min(end, release.size())));
  while (!numbers.empty() && (numbers.back() == '-' || numbers.back() == '.')) {
    numbers.pop_back();
  }
  return numbers.substr(0, kLongestText);
}

// As setlocale(3) chooses; a locale that is named by a path is not told.
std::string localeName() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(variable);
    if (!value || !*value) {
      continue;
    }
    const std::string_view name(value);
    const bool plain = name.size() <= kLongestText && std::ranges::all_of(name, [](char letter) {
                         return isAlphanumeric(letter) || letter == '_' || letter == '.' ||
                                letter == '-' || letter == '@';
                       });
    return plain ? value : "";
  }
  return "";
}

}  // namespace

SystemInformation::SystemInformation(std::string releaseFile)
    : releaseFile_(std::move(releaseFile)) {}

PropertyListDictionary SystemInformation::deviceInformation() {
  PropertyListDictionary information;
  const auto tell = [&](const char* key, std::string text) {
    if (!text.empty()) {
      information.insert_or_assign(key, PropertyListValue(std::move(text)));
    }
  };
  const auto release = readFile(AT_FDCWD, releaseFile_, kReleaseFileBound);
  tell("System", valueIn(release.bytes, "NAME"));
  tell("SystemVersion", valueIn(release.bytes, "VERSION_ID"));
  utsname kernel{};
  if (uname(&kernel) == 0) {
    tell("Kernel", std::string(kernel.sysname) + " " + leadingNumbers(kernel.release));
    tell("Architecture", kernel.machine);
  }
  tell("Locale", localeName());
  return information;
}
