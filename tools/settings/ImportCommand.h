#pragma once

#include "tools/settings/SettingsCommand.h"

/// `quietdial import FILE|-`: takes over what a file sets, all of it or nothing.
class ImportCommand final : public SettingsCommand {
 public:
  std::string_view name() const override { return "import"; }
  std::string_view summary() const override { return "Take settings over from a file."; }
  std::vector<Example> examples() const override;
  int run(Streams streams) override;

 private:
  void describeArguments(CLI::App& app) override;
  bool takeOver(const std::string& bytes, SettingsChange& change, Streams streams) const;
  int tell(const std::string& bytes, Streams streams) const;

  std::string file_;
  bool isDryRun_ = false;
};
