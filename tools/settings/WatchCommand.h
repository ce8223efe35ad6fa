#pragma once

#include "tools/settings/SettingsCommand.h"

/// `quietdial watch`: a line for each change, whoever makes it, until it is ended.
class WatchCommand final : public SettingsCommand {
 public:
  std::string_view name() const override { return "watch"; }
  std::string_view summary() const override { return "Print a line for each change from now on."; }
  std::vector<Example> examples() const override;
  int run(Streams streams) override;

 private:
  void describeArguments(CLI::App& app) override;

  bool isJson_ = false;
};
