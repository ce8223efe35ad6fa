#include "linux/lines/PhoneLinks.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sstream>
#include <utility>
#include <vector>

#include "linux/AtomicFile.h"
#include "linux/homeFolder.h"
#include "linux/lines/DesktopEntry.h"
#include "linux/lines/telephoneLinks.h"
#include "linux/readFile.h"

namespace {

constexpr std::size_t kLargestFile = std::size_t{1} << 20;
constexpr std::string_view kDefaults = "[Default Applications]";
// The dialler's entry says of no links that it opens them: it opens none unless the user wants it.
constexpr std::string_view kAdded = "[Added Associations]";

std::string folderOf(const char* variable, const char* below) {
  if (const char* folder = std::getenv(variable); folder && *folder == '/') {
    return folder;
  }
  const auto home = homeFolder();
  return home ? *home + below : std::string();
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

// The value of a line of the links; nothing for another line.
std::optional<std::string> valueOf(const std::string& line) {
  const auto equals = line.find('=');
  if (equals == std::string::npos) {
    return std::nullopt;
  }
  const auto trimmed = [](std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    return first == std::string_view::npos
               ? std::string()
               : std::string(text.substr(first, text.find_last_not_of(" \t\r") - first + 1));
  };
  return trimmed(std::string_view(line).substr(0, equals)) == kTelephoneLinks
             ? std::optional(trimmed(std::string_view(line).substr(equals + 1)))
             : std::nullopt;
}

bool isGroup(const std::string& line) {
  return line.starts_with('[');
}

// What that group says of the links; nothing where it does not.
std::optional<std::string> valueIn(const std::string& text, std::string_view group) {
  bool isInGroup = false;
  for (const auto& line : linesOf(text)) {
    isInGroup = isGroup(line) ? line.starts_with(group) : isInGroup;
    if (const auto value = isInGroup ? valueOf(line) : std::nullopt) {
      return value;
    }
  }
  return std::nullopt;
}

// The text with that value in the group; without one, and without a group that held nothing else,
// where there is none.
std::string withValue(const std::string& text, std::string_view group,
                      const std::optional<std::string>& value) {
  std::string own;
  if (value) {
    own.append(kTelephoneLinks).append("=").append(*value).append("\n");
  }
  std::string result;
  std::string header;  // of the group, until it is known to hold something
  bool isInGroup = false;
  bool isWritten = own.empty();
  for (const auto& line : linesOf(text)) {
    if (isGroup(line)) {
      isInGroup = line.starts_with(group);
      header.clear();
    }
    if (isInGroup && isGroup(line)) {
      header = line;
      header.append("\n").append(isWritten ? "" : own);
      if (!isWritten) {
        result += std::exchange(header, {});
        isWritten = true;
      }
    } else if (!isInGroup || !valueOf(line)) {
      result.append(std::exchange(header, {})).append(line).append("\n");
    }
  }
  return isWritten ? result : result.append(group).append("\n").append(own);
}

// A list of entries without the dialler's; nothing where no other is left.
std::optional<std::string> withoutOurs(const std::string& list) {
  std::string others;
  std::istringstream stream(list);
  for (std::string entry; std::getline(stream, entry, ';');) {
    if (!entry.empty() && entry != PhoneLinks::kOwnEntry) {
      others += entry + ";";
    }
  }
  return others.empty() ? std::nullopt : std::optional(others);
}

std::string taken(const std::string& list) {
  const auto others = withoutOurs(valueIn(list, kAdded).value_or(""));
  return withValue(withValue(list, kDefaults, PhoneLinks::kOwnEntry), kAdded,
                   others.value_or("") + PhoneLinks::kOwnEntry + ";");
}

bool writeFile(const std::string& path, const std::string& text) {
  return !AtomicFile(path, kLargestFile, [](std::string_view) { return true; }).replace(text);
}

// Whether it stands for itself in an entry's command: xdg-mime does not find a quoted program.
bool isPlain(const std::string& word) {
  return !word.empty() && std::ranges::all_of(word, [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
           std::string_view("/._-+").find(c) != std::string_view::npos;
  });
}

}  // namespace

PhoneLinks::PhoneLinks(std::string program)
    : program_(std::move(program)),
      config_(folderOf("XDG_CONFIG_HOME", "/.config")),
      data_(folderOf("XDG_DATA_HOME", "/.local/share")) {}

std::string PhoneLinks::handler() const {
  return telephoneLinkHandler();
}

std::string PhoneLinks::handlerBesidesOurs() const {
  auto now = handler();
  if (now != kOwnEntry) {
    return now;
  }
  const auto memory = remembered();
  return memory ? memory->handler : std::string();
}

std::string PhoneLinks::nameOf(const std::string& entry) {
  const auto found = DesktopEntry::find(entry);
  return found ? found->name : entry;
}

bool PhoneLinks::take() const {
  const auto list = readList();
  if (!list || areOurs()) {
    return list.has_value();
  }
  const bool needsEntry = !DesktopEntry::find(kOwnEntry);
  const bool isTaken = remember({valueIn(*list, kDefaults), handler(), needsEntry}) &&
                       (!needsEntry || installEntry()) && writeList(taken(*list)) && areOurs();
  if (!isTaken) {
    giveBack();
  }
  return isTaken;
}

bool PhoneLinks::giveBack() const {
  const auto list = readList();
  const auto memory = remembered();
  if (!list) {
    return false;
  }
  const bool isOurs = valueIn(*list, kDefaults) == kOwnEntry;
  const auto former = memory ? memory->list : std::nullopt;
  const std::string given = withValue(isOurs ? withValue(*list, kDefaults, former) : *list, kAdded,
                                      withoutOurs(valueIn(*list, kAdded).value_or("")));
  if (given != *list && !writeList(given)) {
    return false;
  }
  std::error_code ignored;
  if (memory && memory->hasMadeEntry) {
    std::filesystem::remove(entryFile(), ignored);
  }
  std::filesystem::remove(memoryFile(), ignored);
  return true;
}

std::string PhoneLinks::memoryFile() const {
  return config_ + "/quietdial/phone-links";
}

std::string PhoneLinks::entryFile() const {
  return data_ + "/applications/" + kOwnEntry;
}

std::optional<std::string> PhoneLinks::readList() const {
  if (config_.empty()) {
    return std::nullopt;
  }
  auto file = readFile(AT_FDCWD, config_ + "/mimeapps.list", kLargestFile);
  if (file.outcome == FileContents::Outcome::kAbsent) {
    return std::string();
  }
  return file.outcome == FileContents::Outcome::kRead ? std::optional(std::move(file.bytes))
                                                      : std::nullopt;
}

bool PhoneLinks::writeList(const std::string& text) const {
  return writeFile(config_ + "/mimeapps.list", text);
}

std::optional<PhoneLinks::Memory> PhoneLinks::remembered() const {
  const auto file = readFile(AT_FDCWD, memoryFile(), kLargestFile);
  if (file.outcome != FileContents::Outcome::kRead) {
    return std::nullopt;
  }
  Memory memory;
  for (const auto& line : linesOf(file.bytes)) {
    if (line.starts_with("list=")) {
      memory.list = line.substr(5);
    } else if (line.starts_with("handler=")) {
      memory.handler = line.substr(8);
    } else if (line == "entry=made") {
      memory.hasMadeEntry = true;
    }
  }
  return memory;
}

bool PhoneLinks::remember(const Memory& memory) const {
  std::string text = "handler=" + memory.handler + "\n";
  text += memory.hasMadeEntry ? "entry=made\n" : "";
  // A line of its own makes the dialler's one by itself: nothing would be given back.
  if (memory.list && *memory.list != kOwnEntry) {
    text += "list=" + *memory.list + "\n";
  }
  return writeFile(memoryFile(), text);
}

bool PhoneLinks::installEntry() const {
  if (!isPlain(program_) || data_.empty()) {
    return false;
  }
  return writeFile(entryFile(),
                   "[Desktop Entry]\nType=Application\nName=QuietDial Dialler\n"
                   "Icon=me.orlanvey.QuietDial\nExec=" +
                       program_ + " %u\nStartupNotify=true\n");
}
