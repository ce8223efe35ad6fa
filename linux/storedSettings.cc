#include "linux/storedSettings.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>

#include "core/preferenceStore.h"
#include "linux/propertylist/PropertyListBudget.h"
#include "linux/propertylist/PropertyListSerialization.h"
#include "linux/readFile.h"

namespace {

using Outcome = FileContents::Outcome;

std::string faultOf(const FileContents& file) {
  switch (file.outcome) {
    case Outcome::kNotAFile:
      return "it is not a file";
    case Outcome::kTooLarge:
      return "it is larger than settings can be";
    case Outcome::kUnreadable:
      return std::system_category().message(file.error);
    case Outcome::kRead:
    case Outcome::kAbsent:
      break;
  }
  return "it is no property list with settings";
}

}  // namespace

StoredSettings readStoredSettings(const DevicePaths& paths) {
  const auto path = paths.forReading(std::string(kSettingsPath));
  const auto file = path ? readFile(AT_FDCWD, *path, kPropertyListFileBound) : FileContents();
  if (file.outcome == Outcome::kAbsent) {
    return {};
  }
  auto settings = file.outcome == Outcome::kRead ? dictionaryFromBytes(file.bytes) : std::nullopt;
  if (!settings) {
    return {.state = StoredSettings::State::kUnreadable, .settings = {}, .fault = faultOf(file)};
  }
  return {.state = StoredSettings::State::kRead, .settings = std::move(*settings), .fault = {}};
}
