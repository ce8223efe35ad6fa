#include "linux/lines/OfonoLine.h"

#include <utility>

namespace {

using Outcome = Placement::Outcome;

bool hidesByItself(const Ofono::Modem& modem) {
  return modem.type == "hardware";
}

std::string reasonFor(const BusAnswer& answer) {
  if (answer.error.ends_with(".AccessDenied")) {
    return "The system does not let this session place calls.";
  }
  if (answer.error.ends_with(".InvalidFormat")) {
    return "oFono does not take a number of this form.";
  }
  return "oFono does not place this call.";
}

}  // namespace

OfonoLine::OfonoLine(std::shared_ptr<Ofono> ofono) : ofono_(std::move(ofono)) {}

LineFacts OfonoLine::facts() {
  LineFacts facts{.name = name(), .takesPlusBehindPrefix = false};
  if (const auto modem = ofono_->callingModem()) {
    facts.hidesByItself = hidesByItself(*modem);
    facts.inCall = ofono_->isInCall(*modem);
  }
  return facts;
}

Placement OfonoLine::place(const CallPlan& plan) {
  const bool hides = plan.hiding == Hiding::kLine;
  const auto modem = ofono_->callingModem();
  // The plan was made for a modem that hides: none that does not may have it.
  if (!modem || (hides && !hidesByItself(*modem))) {
    return {Outcome::kFailed, "The modem has gone."};
  }
  const auto dialled = ofono_->dial(*modem, plan.dial, hides);
  switch (dialled.outcome) {
    case BusAnswer::Outcome::kAnswered:
      return {Outcome::kPlaced, {}};
    case BusAnswer::Outcome::kRefused:
      return {Outcome::kFailed, reasonFor(dialled)};
    case BusAnswer::Outcome::kSilent:
      break;
  }
  return {Outcome::kUnknown, "oFono took the number and may still dial."};
}
