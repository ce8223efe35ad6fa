#pragma once

#include "tools/settings/SettingsCommand.h"

/// `quietdial status`: what is set, in words, what would be dialled, and what is in the way.
class StatusCommand final : public SettingsCommand {
 public:
  std::string_view name() const override { return "status"; }
  std::string_view summary() const override {
    return "Tell what is set, and what would be dialled.";
  }
  std::vector<Example> examples() const override;
  int run(Streams streams) override;

 private:
  void describeArguments(CLI::App& app) override;

  bool isJson_ = false;
};
