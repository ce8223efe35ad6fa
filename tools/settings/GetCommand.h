#pragma once

#include "tools/settings/SettingsCommand.h"

/// `quietdial get KEY`: prints the value in force. The exit status: 0, 1 where the settings cannot
/// be read, 2 for an unknown key.
class GetCommand final : public SettingsCommand {
 public:
  std::string_view name() const override { return "get"; }
  std::string_view summary() const override { return "Print the value of a setting."; }
  std::vector<Example> examples() const override;
  int run(Streams streams) override;

 private:
  void describeArguments(CLI::App& app) override;

  std::string key_;
  bool isJson_ = false;
};
