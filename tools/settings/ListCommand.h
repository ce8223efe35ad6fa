#pragma once

#include "tools/settings/SettingsCommand.h"

/// `quietdial list`: every setting with its value, its default and whether it was changed.
class ListCommand final : public SettingsCommand {
 public:
  std::string_view name() const override { return "list"; }
  std::string_view summary() const override {
    return "List the settings with their values and defaults.";
  }
  std::vector<Example> examples() const override;
  int run(Streams streams) override;

 private:
  void describeArguments(CLI::App& app) override;

  bool isJson_ = false;
};
