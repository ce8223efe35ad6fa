#pragma once

#include "tools/settings/SettingsCommand.h"

/// `quietdial apply`: restarts the dialler's processes, as the row of the first page does.
class ApplyCommand final : public SettingsCommand {
 public:
  std::string_view name() const override { return "apply"; }
  std::string_view summary() const override {
    return "Restart the dialler, which reads the settings anew.";
  }
  std::vector<Example> examples() const override;
  int run(Streams streams) override;

 private:
  void describeArguments(CLI::App& app) override;
};
