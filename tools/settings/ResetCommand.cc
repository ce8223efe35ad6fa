#include "tools/settings/ResetCommand.h"

#include <unistd.h>

#include <CLI/CLI.hpp>

#include "linux/storedSettings.h"
#include "tools/askUser.h"
#include "tools/settings/settingText.h"

std::vector<Example> ResetCommand::examples() const {
  return {{"quietdial reset --yes dialerMode", "the dial tab's style alone, without asking"},
          {"quietdial reset --yes", "everything"}};
}

void ResetCommand::describeArguments(CLI::App& app) {
  app.add_option("KEY", keys_, "The settings; all of them where none is named");
  app.add_flag("--yes", isYes_, "Do not ask");
}

void ResetCommand::resetIn(SettingsChange& change) const {
  if (settings_.empty()) {
    change.resetAll();
  }
  for (const auto* const setting : settings_) {
    change.reset(*setting);
  }
}

int ResetCommand::run(Streams streams) {
  for (const auto& key : keys_) {
    const auto known = leadingSettingFor(key);
    if (!known.setting) {
      return fail(streams, known.fault, kNotUnderstood);
    }
    settings_.push_back(known.setting);
  }
  if (!isYes_) {
    SettingsChange change(readStoredSettings(paths()).settings);
    resetIn(change);
    switch (askUser(streams, textOf(change.differences()) + "Reset?")) {
      case Answer::kYes:
        break;
      case Answer::kNo:
        return fail(streams, "nothing was reset.");
      case Answer::kNobody:
        return fail(streams, "there is no terminal to ask on; --yes resets without asking.",
                    kNotUnderstood);
    }
  }
  return change(
      streams,
      [this](SettingsChange& change) {
        resetIn(change);
        return true;
      },
      settings_.empty());
}
