#pragma once

#include "tools/settings/SettingsCommand.h"

/// `quietdial open [PAGE]`: opens the window, on that page.
class OpenCommand final : public SettingsCommand {
 public:
  std::string_view name() const override { return "open"; }
  std::string_view summary() const override { return "Open the window on a page."; }
  std::vector<Example> examples() const override;
  int run(Streams streams) override;

 private:
  void describeArguments(CLI::App& app) override;

  std::string page_;
};
