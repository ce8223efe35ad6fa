#include "changes/changeSettings.h"

#include <algorithm>
#include <chrono>
#include <memory>

#include "core/preferenceStore.h"
#include "linux/DeviceFileService.h"
#include "linux/FileLock.h"
#include "linux/storedSettings.h"

namespace {

using Outcome = ChangeResult::Outcome;

constexpr auto kPatience = std::chrono::seconds(10);

std::string lockPath(const std::string& file) {
  const auto slash = file.rfind('/');
  return file.substr(0, slash + 1) + "." + file.substr(slash + 1) + ".lock";
}

bool isThere(const PropertyListDictionary& stored, const SettingsDifference& difference) {
  const auto entry = stored.find(difference.setting->key);
  return entry == stored.end() ? !difference.after : difference.after == entry->second;
}

ChangeResult failed(Outcome outcome, std::string fault) {
  return {.outcome = outcome, .fault = std::move(fault), .differences = {}};
}

}  // namespace

ChangeResult changeSettings(const DevicePaths& paths, const ChangeSteps& steps) {
  const std::string path(kSettingsPath);
  const auto file = paths.forWriting(path);
  if (!file) {
    return failed(Outcome::kNotWritten, "it lies outside of the device root");
  }
  const FileLock lock(lockPath(*file), kPatience);
  if (lock.error()) {
    return failed(lock.error() == std::errc::timed_out ? Outcome::kBusy : Outcome::kNotWritten,
                  lock.error().message());
  }
  const auto stored = readStoredSettings(paths);
  const bool isUnreadable = stored.state == StoredSettings::State::kUnreadable;
  if (isUnreadable && !steps.replacesUnreadable) {
    return failed(Outcome::kUnreadable, stored.fault);
  }
  SettingsChange change(stored.settings);
  if (!steps.decide(change) || (change.isEmpty() && !isUnreadable)) {
    return {};
  }
  DeviceFileService files(std::make_shared<const DevicePaths>(paths));
  if (const auto error = files.replaceFile(change.after(), path)) {
    return failed(Outcome::kNotWritten, error.message());
  }
  steps.announce();
  const auto now = readStoredSettings(paths);
  auto differences = change.differences();
  const bool isKept = now.state == StoredSettings::State::kRead &&
                      std::ranges::all_of(differences, [&](const auto& difference) {
                        return isThere(now.settings, difference);
                      });
  return {.outcome = isKept ? Outcome::kChanged : Outcome::kOverwritten,
          .fault = {},
          .differences = std::move(differences)};
}
