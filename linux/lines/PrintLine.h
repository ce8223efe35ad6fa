#pragma once

#include <ostream>

#include "calling/Line.h"

/// Writes what would be dialled, one line. For trying the rules out.
class PrintLine final : public Line {
 public:
  static constexpr const char* kName = "print";

  /// `out` is kept by reference.
  explicit PrintLine(std::ostream& out) : out_(out) {}

  std::string name() const override { return kName; }
  LineFacts facts() override { return {.name = kName}; }
  std::string title() const override { return "standard output"; }
  Placement place(const CallPlan& plan) override {
    out_ << plan.dial << std::endl;
    return {out_ ? Placement::Outcome::kHandedOver : Placement::Outcome::kFailed, {}};
  }

 private:
  std::ostream& out_;
};
