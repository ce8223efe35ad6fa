#pragma once

#include <functional>
#include <string>
#include <system_error>
#include <vector>

#include "changes/SettingsChange.h"
#include "linux/DevicePaths.h"

/// How a change of the settings has ended.
struct ChangeResult {
  enum class Outcome {
    kUnchanged,    ///< There was nothing to change, or it was refused; nothing was written.
    kChanged,      ///< It is in the file.
    kOverwritten,  ///< It was in the file, and somebody else has written since.
    kBusy,         ///< Another process is changing the settings.
    kUnreadable,   ///< The file is there and cannot be read; it is as it was.
    kNotWritten,   ///< The file could not be written; it is as it was.
  };

  Outcome outcome = Outcome::kUnchanged;
  std::string fault;  ///< Where it failed: why, as the end of a sentence.
  std::vector<SettingsDifference> differences;
};

struct ChangeSteps {
  /// Makes the change. False refuses it.
  std::function<bool(SettingsChange&)> decide;
  /// Called once when the file was written: tells others of it.
  std::function<void()> announce;
  /// Whether a file that cannot be read is taken for an empty one. It is kept beside the new one.
  bool replacesUnreadable = false;
};

/// Changes the settings file as one step: merged into what is stored, written once, told once and
/// read back. Those who change it by this function take turns; panes do not, so what is read back
/// may be what a pane has written since. Any thread.
ChangeResult changeSettings(const DevicePaths& paths, const ChangeSteps& steps);
