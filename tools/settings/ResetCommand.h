#pragma once

#include <vector>

#include "tools/settings/SettingsCommand.h"

/// `quietdial reset [KEY…]`: takes settings, or all of them, back to their defaults.
class ResetCommand final : public SettingsCommand {
 public:
  std::string_view name() const override { return "reset"; }
  std::string_view summary() const override { return "Take settings back to their defaults."; }
  std::vector<Example> examples() const override;
  int run(Streams streams) override;

 private:
  void describeArguments(CLI::App& app) override;
  void resetIn(SettingsChange& change) const;

  std::vector<std::string> keys_;
  std::vector<const settings::Setting*> settings_;
  bool isYes_ = false;
};
