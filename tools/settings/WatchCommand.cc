#include "tools/settings/WatchCommand.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include <CLI/CLI.hpp>

#include "core/preferenceStore.h"
#include "linux/FolderWatch.h"
#include "linux/privateFolder.h"
#include "linux/storedSettings.h"
#include "tools/propertyListJson.h"
#include "tools/settings/settingText.h"

namespace {

// The folder in which the file is replaced, wherever links on the way lead. Made where it is
// missing, so that there is something to watch.
std::string folderOf(const DevicePaths& paths) {
  const auto file = paths.forWriting(std::string(kSettingsPath)).value_or("");
  std::error_code error;
  const auto target = std::filesystem::weakly_canonical(file, error);
  const auto folder = (error ? std::filesystem::path(file) : target).parent_path().string();
  makePrivateFolders(folder);
  return folder;
}

std::string jsonLines(const std::vector<SettingsDifference>& differences) {
  std::string lines;
  for (const auto& [setting, before, after] : differences) {
    const Json line{{"key", setting->key}, {"before", toJson(before)}, {"after", toJson(after)}};
    lines += printed(line) + '\n';
  }
  return lines;
}

}  // namespace

std::vector<Example> WatchCommand::examples() const {
  return {{"quietdial watch", "\"dialerMode: 0 (Swipe) -> 1 (Hold)\" and so on; Ctrl-C ends it"},
          {"quietdial watch --json", "an object with key, before and after a line"}};
}

void WatchCommand::describeArguments(CLI::App& app) {
  app.add_flag("--json", isJson_, "Each as one JSON object; null for what is not set");
}

int WatchCommand::run(Streams streams) {
  const auto paths = this->paths();
  const auto folder = folderOf(paths);
  FolderWatch watch(folder);
  if (watch.error()) {
    return fail(streams, folder + " cannot be watched: " + watch.error().message() + '.');
  }
  auto known = readStoredSettings(paths).settings;
  if (!isQuiet()) {
    streams.err << "Watching the settings in " << folder << std::endl;
  }
  while (streams.out && watch.wait()) {
    auto now = readStoredSettings(paths);
    if (now.state == StoredSettings::State::kUnreadable) {
      fail(streams, "the settings file cannot be read: " + now.fault + '.');
      continue;
    }
    const auto differences = differencesBetween(known, now.settings);
    streams.out << (isJson_ ? jsonLines(differences) : textOf(differences)) << std::flush;
    known = std::move(now.settings);
  }
  return streams.out ? fail(streams, folder + " is gone.") : kFailed;
}
