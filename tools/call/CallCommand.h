#pragma once

#include "tools/Command.h"
#include "tools/call/CallOptions.h"

/// `quietdial call`: plans a call that asks for the number to be hidden, tells it, and places it
/// once that is confirmed. docs/calling.md describes it.
///
/// The exit status: 0 placed, handed over or told; 2 arguments that are not understood, or nobody
/// to ask; 3 refused by a rule, or by the user; 4 no line; 5 the line failed; 6 not known.
class CallCommand final : public Command {
 public:
  std::string_view name() const override { return "call"; }
  std::string_view summary() const override {
    return "Call a number and ask for yours to be hidden.";
  }
  std::vector<Example> examples() const override;
  void describe(CLI::App& app) override;
  int run(Streams streams) override;

 private:
  CallOptions options_;
};
