#include "linux/lines/ModemLine.h"

#include <algorithm>
#include <utility>

namespace {

using Outcome = Placement::Outcome;

constexpr const char* kMayStillDial = "The modem took the number and may still dial.";

Placement failed(std::string sentence) {
  return {Outcome::kFailed, std::move(sentence)};
}

// Why the modem refused; its own words are not shown, they are not for users.
std::string reasonFor(const BusAnswer& answer) {
  if (answer.error.ends_with(".Unauthorized") || answer.error.ends_with(".AccessDenied")) {
    return "The system does not let this session place calls. It lets one at the device itself.";
  }
  if (answer.error.ends_with(".UnknownObject") || answer.error.ends_with(".UnknownMethod") ||
      answer.error.ends_with(".ServiceUnknown") || answer.error.ends_with(".NameHasNoOwner")) {
    return "The modem has gone.";
  }
  return "The modem does not place this call.";
}

}  // namespace

ModemLine::ModemLine(std::shared_ptr<ModemManager> modems) : modems_(std::move(modems)) {}

LineFacts ModemLine::facts() {
  LineFacts facts{.name = name()};
  for (const auto& modem : modems_->modems()) {
    facts.inCall =
        facts.inCall || std::ranges::any_of(modem.calls, [this](const auto& call) {
          const auto state = modems_->callState(call);
          return state && *state != ModemManager::kNew && *state != ModemManager::kTerminated;
        });
  }
  return facts;
}

Placement ModemLine::place(const CallPlan& plan) {
  const auto modem = modems_->callingModem();
  if (!modem) {
    return failed("The modem has gone.");
  }
  if (modem->state == ModemManager::kLocked) {
    return failed("The SIM is locked. Unlock it first.");
  }
  if (modem->state < ModemManager::kEnabled) {
    return failed("The modem is off.");
  }
  if (modem->state < ModemManager::kRegistered && !plan.isEmergency) {
    return failed("The modem has no network.");
  }
  const auto created = modems_->createCall(modem->path, plan.dial);
  const auto path = created.first();
  const auto* call = path.get<std::string>();
  if (created.outcome == BusAnswer::Outcome::kSilent) {
    return {Outcome::kUnknown, kMayStillDial};
  }
  if (!created.isAnswered() || !call) {
    return failed(reasonFor(created));
  }
  return start(modem->path, *call);
}

Placement ModemLine::start(const std::string& modem, const std::string& call) {
  const auto started = modems_->startCall(call);
  if (started.isAnswered()) {
    return {Outcome::kPlaced, {}};
  }
  if (started.outcome == BusAnswer::Outcome::kSilent) {
    return {Outcome::kUnknown, kMayStillDial};
  }
  // Where a program that watches the modem starts each new call, ours is under way already.
  const auto state = modems_->callState(call);
  if (state && *state != ModemManager::kNew && *state != ModemManager::kTerminated) {
    return {Outcome::kPlaced, {}};
  }
  if (state) {
    modems_->deleteCall(modem, call);
  }
  return failed(reasonFor(started));
}
