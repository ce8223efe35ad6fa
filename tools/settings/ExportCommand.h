#pragma once

#include "tools/settings/SettingsCommand.h"

/// `quietdial export [FILE|-]`: writes the settings that are set as one JSON file.
class ExportCommand final : public SettingsCommand {
 public:
  std::string_view name() const override { return "export"; }
  std::string_view summary() const override { return "Write the settings to a file."; }
  std::vector<Example> examples() const override;
  int run(Streams streams) override;

 private:
  void describeArguments(CLI::App& app) override;

  std::string file_ = "-";
};
