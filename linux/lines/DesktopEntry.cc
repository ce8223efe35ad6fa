#include "linux/lines/DesktopEntry.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sstream>
#include <string_view>

#include "linux/readFile.h"

namespace {

constexpr std::size_t kLargestEntry = std::size_t{1} << 20;

std::vector<std::string> split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    const auto end = text.find(separator);
    if (end != 0) {
      parts.emplace_back(text.substr(0, end));
    }
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return parts;
}

std::vector<std::string> folders() {
  std::vector<std::string> folders;
  const char* home = std::getenv("HOME");
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data && *data == '/') {
    folders.emplace_back(data);
  } else if (home && *home == '/') {
    folders.push_back(std::string(home) + "/.local/share");
  }
  const char* system = std::getenv("XDG_DATA_DIRS");
  for (auto& folder : split(system && *system ? system : "/usr/local/share:/usr/share", ':')) {
    if (folder.starts_with('/')) {
      folders.push_back(std::move(folder));
    }
  }
  return folders;
}

// The values of the group that describes the program; nothing where it says that it is hidden.
std::optional<DesktopEntry> parse(const std::string& id, const std::string& bytes) {
  DesktopEntry entry;
  entry.id = id;
  entry.name = id;
  bool isInGroup = false;
  std::istringstream lines(bytes);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with('[')) {
      isInGroup = line == "[Desktop Entry]";
      continue;
    }
    const auto equals = line.find('=');
    if (!isInGroup || equals == std::string::npos) {
      continue;
    }
    const auto keyEnd = line.find_last_not_of(" \t", equals == 0 ? 0 : equals - 1);
    const std::string key = line.substr(0, keyEnd + 1);
    const auto start = line.find_first_not_of(" \t", equals + 1);
    const std::string value = start == std::string::npos ? "" : line.substr(start);
    if (key == "Name") {
      entry.name = value;
    } else if (key == "Exec") {
      entry.exec = value;
    } else if (key == "DBusActivatable") {
      entry.isActivatable = value == "true";
    } else if (key == "MimeType") {
      entry.mimeTypes = split(value, ';');
    } else if (key == "Categories") {
      entry.categories = split(value, ';');
    } else if (key == "Hidden" && value == "true") {
      return std::nullopt;
    }
  }
  return entry;
}

// One argument at the front of a command, without its quotes; nothing where a quote is not closed.
std::optional<std::string> takeArgument(std::string_view& command) {
  std::string argument;
  bool isQuoted = false;
  while (!command.empty() && (isQuoted || command.front() != ' ')) {
    const char c = command.front();
    command.remove_prefix(1);
    if (c == '"') {
      isQuoted = !isQuoted;
    } else if (c == '\\' && isQuoted && !command.empty()) {
      argument += command.front();
      command.remove_prefix(1);
    } else {
      argument += c;
    }
  }
  return isQuoted ? std::nullopt : std::optional(argument);
}

}  // namespace

bool DesktopEntry::opens(std::string_view mimeType) const {
  return std::ranges::find(mimeTypes, mimeType) != mimeTypes.end();
}

bool DesktopEntry::isBrowser() const {
  return std::ranges::find(categories, "WebBrowser") != categories.end() ||
         opens("x-scheme-handler/http") || opens("x-scheme-handler/https");
}

std::vector<std::string> DesktopEntry::commandFor(const std::string& address) const {
  std::vector<std::string> arguments;
  std::string_view rest = exec;
  while (!rest.empty()) {
    if (rest.front() == ' ') {
      rest.remove_prefix(1);
      continue;
    }
    const auto argument = takeArgument(rest);
    if (!argument) {
      return {};
    }
    if (*argument == "%u" || *argument == "%U") {
      arguments.push_back(address);
    } else if (argument->size() == 2 && argument->front() == '%' && *argument != "%%") {
      continue;  // files, icons and names, which there are none of
    } else {
      arguments.push_back(*argument == "%%" ? "%" : *argument);
    }
  }
  return arguments;
}

std::optional<DesktopEntry> DesktopEntry::find(const std::string& id) {
  if (id.find('/') != std::string::npos || !id.ends_with(".desktop")) {
    return std::nullopt;
  }
  for (const auto& folder : folders()) {
    const auto path = std::filesystem::path(folder) / "applications" / id;
    const auto file = readFile(AT_FDCWD, path, kLargestEntry);
    if (file.outcome == FileContents::Outcome::kRead) {
      return parse(id, file.bytes);
    }
  }
  return std::nullopt;
}
