#pragma once

#include <memory>

#include "calling/Line.h"
#include "linux/lines/ModemManager.h"

/// A modem that ModemManager looks after. It takes a prefix: ModemManager has no way to hide the
/// number itself, and dials whatever it is given.
class ModemLine final : public Line {
 public:
  explicit ModemLine(std::shared_ptr<ModemManager> modems);

  std::string name() const override { return "modem"; }
  std::string title() const override { return "the modem"; }
  LineFacts facts() override;
  Placement place(const CallPlan& plan) override;

 private:
  Placement start(const std::string& modem, const std::string& call);

  std::shared_ptr<ModemManager> modems_;
};
