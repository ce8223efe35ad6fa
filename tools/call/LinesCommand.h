#pragma once

#include "tools/Command.h"

/// `quietdial lines`: lists what can place calls here, and which of it a call takes.
class LinesCommand final : public Command {
 public:
  std::string_view name() const override { return "lines"; }
  std::string_view summary() const override { return "List what can place calls here."; }
  std::vector<Example> examples() const override;
  void describe(CLI::App& app) override;
  int run(Streams streams) override;

 private:
  bool isJson_ = false;
};
