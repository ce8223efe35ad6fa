#include "tools/call/OutgoingCall.h"

#include <unistd.h>
#include <utility>

#include "linux/callSettings.h"
#include "linux/lines/CallPause.h"
#include "linux/lines/PrintLine.h"
#include "tools/call/CallReport.h"
#include "tools/deviceRoot.h"
#include "tools/readLine.h"

namespace {

constexpr std::size_t kLongestAnswer = 512;

std::string print(const nlohmann::ordered_json& object) {
  return object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

bool onlyWrites(const CallPlan& plan) {
  return plan.line == PrintLine::kName;
}

}  // namespace

OutgoingCall::OutgoingCall(const CallOptions& options, CallRequest request, Streams streams)
    : options_(options),
      request_(std::move(request)),
      streams_(streams),
      planner_(plans_, surroundings()) {}

int OutgoingCall::run() {
  const bool isEmergency = planner_.isEmergency(request_);
  auto lines = linesFor(isEmergency);
  if (lines.empty()) {
    const auto plan = planner_.plan(request_, nullptr);
    return refuse(plan, *plan.refusal);
  }
  bool isAsked = false;
  for (std::size_t i = 0;; ++i) {
    Line& line = *lines[i];
    const LineFacts facts = line.facts();
    const auto plan = planner_.plan(request_, &facts);
    if (plan.refusal) {
      return refuse(plan, *plan.refusal);
    }
    if (options_.isDryRun) {
      return tell(plan, line);
    }
    if (!isAsked) {
      if (const auto status = confirm(plan, line)) {
        return *status;
      }
      isAsked = true;
    }
    const auto placement = place(plan, line);
    const bool hasNext = isEmergency && i + 1 < lines.size();
    if (placement.outcome != Placement::Outcome::kFailed || !hasNext) {
      return finish(plan, placement);
    }
    streams_.err << "quietdial call: " << placement.sentence << " Trying the next line.\n";
  }
}

Surroundings OutgoingCall::surroundings() const {
  return {.settings = readCallSettings(devicePathsBelow(options_.root)),
          .network = lines_.network(),
          .givenRegion = options_.region,
          .localeRegion = localeRegion()};
}

std::vector<std::shared_ptr<Line>> OutgoingCall::linesFor(bool isEmergency) const {
  if (options_.via == PrintLine::kName) {
    return {std::make_shared<PrintLine>(streams_.out)};
  }
  return lines_.forCall(options_.via, isEmergency);
}

int OutgoingCall::refuse(const CallPlan& plan, Refusal refusal) {
  const std::string sentence(sentenceOf(refusal));
  if (options_.isJson) {
    streams_.out << print(jsonOf(plan, sentence)) << std::endl;
  } else {
    streams_.err << "quietdial call: " << sentence << '\n';
  }
  return refusal == Refusal::kNoLine ? kWithoutLine : kRefused;
}

int OutgoingCall::tell(const CallPlan& plan, Line& line) {
  streams_.out << (options_.isJson ? print(jsonOf(plan, "")) : sentencesOf(plan, line.title()))
               << std::endl;
  return kDone;
}

// The status to end with where the user does not want the call, or cannot be asked.
std::optional<int> OutgoingCall::confirm(const CallPlan& plan, Line& line) {
  if (onlyWrites(plan)) {
    return std::nullopt;
  }
  if (!options_.isJson) {
    streams_.out << sentencesOf(plan, line.title()) << std::endl;
  }
  if (options_.isConfirmed) {
    return std::nullopt;
  }
  if (options_.number == "-" || isatty(STDIN_FILENO) == 0) {
    streams_.err << "quietdial call: there is no terminal to ask on; --yes calls without asking.\n";
    return kNotUnderstood;
  }
  (options_.isJson ? streams_.err : streams_.out) << "Call? [y/N] " << std::flush;
  const auto answer = readLine(streams_.in, kLongestAnswer);
  if (answer == "y" || answer == "Y" || answer == "yes") {
    return std::nullopt;
  }
  streams_.err << "quietdial call: not called.\n";
  return kRefused;
}

Placement OutgoingCall::place(const CallPlan& plan, Line& line) const {
  if (onlyWrites(plan)) {
    return options_.isJson ? Placement{Placement::Outcome::kHandedOver, {}} : line.place(plan);
  }
  if (!plan.isEmergency) {
    waitForCallPause();
  }
  return line.place(plan);
}

int OutgoingCall::finish(const CallPlan& plan, const Placement& placement) {
  using Outcome = Placement::Outcome;
  if (options_.isJson) {
    streams_.out << print(jsonOf(plan, placement.sentence)) << std::endl;
  } else if (!placement.sentence.empty()) {
    const bool isGood =
        placement.outcome == Outcome::kPlaced || placement.outcome == Outcome::kHandedOver;
    (isGood ? streams_.out : streams_.err << "quietdial call: ") << placement.sentence << std::endl;
  }
  switch (placement.outcome) {
    case Outcome::kPlaced:
    case Outcome::kHandedOver:
      return kDone;
    case Outcome::kFailed:
      return kLineFailed;
    case Outcome::kUnknown:
      break;
  }
  return kNotKnown;
}
