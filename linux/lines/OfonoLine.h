#pragma once

#include <memory>

#include "calling/Line.h"
#include "linux/lines/Ofono.h"

/// A modem that oFono looks after. One of its own hardware hides the number by itself. A phone on
/// Bluetooth would drop that wish without a word, so it takes the prefix; oFono refuses a `+`
/// behind one.
class OfonoLine final : public Line {
 public:
  explicit OfonoLine(std::shared_ptr<Ofono> ofono);

  std::string name() const override { return "ofono"; }
  std::string title() const override { return "oFono"; }
  LineFacts facts() override;
  Placement place(const CallPlan& plan) override;

 private:
  std::shared_ptr<Ofono> ofono_;
};
