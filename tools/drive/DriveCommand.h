#pragma once

#include <string>

#include "tools/Command.h"
#include "tools/drive/DriveOptions.h"

/// `quietdial drive`: reads a request a line, writes a reply a line, in step. The exit status: 0 at
/// the end of the input or after `quit`, 2 for arguments that cannot be used, 1 when the panes
/// cannot be loaded; in both cases one line on the error stream says why.
class DriveCommand final : public Command {
 public:
  std::string_view name() const override { return "drive"; }
  std::string_view summary() const override {
    return "Run the settings panes without a window, under a script.";
  }
  std::vector<Example> examples() const override;
  void describe(CLI::App& app) override;
  int run(Streams streams) override;

 private:
  int serve(const std::string& root, Streams streams) const;

  DriveOptions options_;
};
