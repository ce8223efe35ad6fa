#pragma once

#include "tools/settings/SettingsCommand.h"

/// `quietdial set KEY VALUE`: stores a value, with what goes along with it.
class SetCommand final : public SettingsCommand {
 public:
  std::string_view name() const override { return "set"; }
  std::string_view summary() const override { return "Set a setting."; }
  std::vector<Example> examples() const override;
  int run(Streams streams) override;

 private:
  void describeArguments(CLI::App& app) override;

  std::string key_;
  std::string value_;
};
