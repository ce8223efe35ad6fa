#include "linux/lines/CallDesk.h"

#include <optional>
#include <utility>

#include "calling/CallPlanner.h"
#include "linux/PhoneNumbers.h"
#include "linux/callSettings.h"
#include "linux/lines/CallPause.h"
#include "linux/lines/Lines.h"
#include "linux/lines/PrintLine.h"

namespace {

bool isSameCall(const CallPlan& left, const CallPlan& right) {
  return left.dial == right.dial && left.hiding == right.hiding && left.line == right.line &&
         left.isEmergency == right.isEmergency && left.notices == right.notices;
}

CallResult resultOf(const Placement& placement) {
  switch (placement.outcome) {
    case Placement::Outcome::kPlaced:
      return {CallResult::Outcome::kPlaced, placement.sentence};
    case Placement::Outcome::kHandedOver:
      return {CallResult::Outcome::kHandedOver, placement.sentence};
    case Placement::Outcome::kFailed:
      return {CallResult::Outcome::kFailed, placement.sentence};
    case Placement::Outcome::kUnknown:
      break;
  }
  return {CallResult::Outcome::kUnknown, placement.sentence};
}

}  // namespace

// The lines and the settings as they are at one moment.
class CallDesk::Moment {
 public:
  Moment(const CallDesk& desk, const std::string& text)
      : terms_(desk.terms_),
        anonymous_{text, true, false},
        planner_(plans_, {.settings = readCallSettings(terms_.paths),
                          .network = found_.network(),
                          .givenRegion = terms_.region,
                          .localeRegion = localeRegion()}),
        isEmergency_(planner_.isEmergency(anonymous_)),
        lines_(choose()) {}

  const std::vector<std::shared_ptr<Line>>& lines() const { return lines_; }
  const PhoneNumbers& plans() const { return plans_; }

  CallPlan plan(bool isAnonymous, const LineFacts* facts) const {
    return planner_.plan({anonymous_.text, isAnonymous, false}, facts);
  }

 private:
  std::vector<std::shared_ptr<Line>> choose() const {
    const auto print = [this] {
      return std::vector<std::shared_ptr<Line>>{std::make_shared<PrintLine>(*terms_.out)};
    };
    if (terms_.out && terms_.via == PrintLine::kName) {
      return print();
    }
    auto lines = found_.forCall(terms_.via, isEmergency_);
    return lines.empty() && terms_.out && terms_.isTrial ? print() : lines;
  }

  const Terms& terms_;
  CallRequest anonymous_;
  const PhoneNumbers plans_;
  const Lines found_;
  CallPlanner planner_;
  bool isEmergency_;
  std::vector<std::shared_ptr<Line>> lines_;
};

CallDesk::CallDesk(Terms terms) : terms_(std::move(terms)) {}

CallOffer CallDesk::offer(const std::string& text) const {
  const Moment moment(*this, text);
  Line* line = moment.lines().empty() ? nullptr : moment.lines().front().get();
  const auto facts = line ? std::optional(line->facts()) : std::nullopt;
  CallOffer offer{
      .anonymous = moment.plan(true, facts ? &*facts : nullptr),
      .open = moment.plan(false, facts ? &*facts : nullptr),
      .lineTitle = line ? line->title() : "",
      .written = {},
      .country = {},
  };
  // Beside the number that is read, what a prefix has been put in front of.
  const auto& plan = offer.anonymous.refusal ? offer.open : offer.anonymous;
  const std::string number =
      plan.refusal ? offer.open.number : plan.dial.substr(plan.prefix.size());
  const auto parsed = plan.isEmergency ? std::nullopt : moment.plans().parse(number, plan.region);
  offer.written = parsed && parsed->isValid ? parsed->written : number;
  if (parsed && parsed->isValid && parsed->region != plan.region) {
    offer.country = parsed->region;
  }
  return offer;
}

CallResult CallDesk::place(const std::string& text, bool isAnonymous, const CallPlan& agreed,
                           const std::function<bool()>& isGivenUp) const {
  using Outcome = CallResult::Outcome;
  const Moment moment(*this, text);
  const auto& lines = moment.lines();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const LineFacts facts = lines[i]->facts();
    const auto plan = moment.plan(isAnonymous, &facts);
    if (plan.refusal || (i == 0 && !isSameCall(plan, agreed))) {
      return {Outcome::kChanged, {}};
    }
    if (!plan.isEmergency && facts.name != PrintLine::kName) {
      waitForCallPause();
    }
    if (isGivenUp()) {
      return {Outcome::kGivenUp, {}};
    }
    const auto result = resultOf(lines[i]->place(plan));
    const bool hasNext = plan.isEmergency && i + 1 < lines.size();
    if (result.outcome != Outcome::kFailed || !hasNext) {
      return result;
    }
  }
  return {Outcome::kChanged, {}};
}
