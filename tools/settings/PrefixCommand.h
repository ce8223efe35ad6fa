#pragma once

#include <optional>

#include "tools/settings/SettingsCommand.h"

/// `quietdial prefix [COUNTRY|--custom TEXT]`: chooses the prefix as its page does, or shows the
/// table.
class PrefixCommand final : public SettingsCommand {
 public:
  std::string_view name() const override { return "prefix"; }
  std::string_view summary() const override {
    return "Choose the prefix that hides your number, by country or your own.";
  }
  std::vector<Example> examples() const override;
  int run(Streams streams) override;

 private:
  void describeArguments(CLI::App& app) override;
  int printTable(Streams streams) const;

  std::optional<std::string> country_;
  std::optional<std::string> custom_;
  bool isJson_ = false;
};
