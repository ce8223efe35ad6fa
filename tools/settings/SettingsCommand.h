#pragma once

#include <optional>
#include <string>

#include "changes/changeSettings.h"
#include "linux/DevicePaths.h"
#include "tools/Command.h"

/// The exit status of a command that could not do what it was asked.
inline constexpr int kFailed = 1;

/// What the commands over the settings share: where the settings are, how much is said, and a
/// change from the file to the answer.
class SettingsCommand : public Command {
 public:
  void describe(CLI::App& app) final;

 protected:
  /// The options and arguments of its own.
  virtual void describeArguments(CLI::App& app) = 0;

  DevicePaths paths() const;
  const std::string& root() const { return root_; }
  bool isQuiet() const { return isQuiet_; }

  /// Says what is wrong and returns the status.
  int fail(Streams streams, const std::string& sentence, int status = kFailed) const;

  /// What is stored; nothing, after saying why, where the file cannot be read.
  std::optional<PropertyListDictionary> readSettings(Streams streams) const;

  /// Changes the settings, tells other programs, applies them and says what has changed. The exit
  /// status; kFailed where `decide` refused, which has said why.
  int change(Streams streams, const std::function<bool(SettingsChange&)>& decide,
             bool replacesUnreadable = false) const;

 private:
  std::string root_;
  bool isQuiet_ = false;
};
