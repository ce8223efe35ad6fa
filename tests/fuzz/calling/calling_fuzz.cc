#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "calling/CallPlanner.h"
#include "calling/Characters.h"
#include "calling/EmergencyNumbers.h"
#include "calling/countries.h"
#include "calling/lastCheck.h"
#include "linux/PhoneNumbers.h"
#include "prefix/prefixes.h"

// Any text as something to call, under any settings and in any place: what goes to a line passes
// the last check, no emergency number gets a prefix, an anonymous call asks to be hidden, and
// planning what was planned gives it again.

namespace {

void require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

// Takes the choices off the front of the input.
class Choices {
 public:
  explicit Choices(std::string_view bytes) : bytes_(bytes) {}

  std::size_t next(std::size_t count) {
    if (bytes_.empty()) {
      return 0;
    }
    const auto byte = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    return byte % count;
  }
  bool flag() { return next(2) == 1; }
  std::string text(std::size_t longest) {
    const auto wanted = next(longest + 1);
    const auto size = std::min(wanted, bytes_.size());
    std::string text(bytes_.substr(0, size));
    bytes_.remove_prefix(size);
    return text;
  }
  std::string rest() { return std::string(bytes_); }

 private:
  std::string_view bytes_;
};

std::string region(Choices& choices) {
  constexpr std::array<std::string_view, 16> kRegions{
      "", "DE", "US", "GB", "IE", "JP", "IT", "KR", "IL", "BR", "IN", "AU", "FR", "PK", "MY", "ZZ"};
  return std::string(kRegions[choices.next(kRegions.size())]);
}

std::string prefix(Choices& choices) {
  const auto index = choices.next(prefixes.size() + 2);
  return index < prefixes.size() ? std::string(prefixes[index].second) : choices.text(10);
}

struct Case {
  Surroundings around;
  LineFacts line;
  CallRequest request;
};

Case caseFrom(std::string_view bytes) {
  Choices choices(bytes);
  Case made;
  auto& settings = made.around.settings;
  settings.areReadable = !choices.flag() || !choices.flag();
  settings.prefix = prefix(choices);
  settings.customPrefix = choices.flag() ? prefix(choices) : "";
  settings.country = std::string(prefixes[choices.next(prefixes.size())].first);
  auto& network = made.around.network;
  network.region = region(choices);
  network.simRegion = region(choices);
  if (choices.flag()) {
    network.hasSIM = choices.flag();
  }
  if (choices.flag()) {
    network.emergencyNumbers = {choices.text(8), choices.text(3)};
  }
  made.around.givenRegion = choices.flag() ? region(choices) : "";
  made.around.localeRegion = region(choices);
  made.line = {"fuzz", choices.flag(), choices.flag(), false};
  made.request.isAnonymous = choices.next(4) != 0;
  made.request.isAsIs = choices.next(4) == 0;
  made.request.text = choices.rest();
  return made;
}

// Digits in front may be the number's own, which only a valid number tells.
bool isFoundAgain(const PhoneNumbers& plans, const CallPlan& plan) {
  if (!isDigits(plan.prefix)) {
    return true;
  }
  const auto isValid = [&](const std::string& number) {
    const auto parsed = plans.parse(number, plan.region);
    return parsed && parsed->isValid;
  };
  return !plan.region.empty() && !isValid(plan.dial) &&
         isValid(plan.dial.substr(plan.prefix.size()));
}

std::size_t digitsIn(std::string_view text) {
  return text.size() - static_cast<std::size_t>(std::ranges::count(text, '+'));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const PhoneNumbers plans;
  const Case input = caseFrom({reinterpret_cast<const char*>(bytes), size});
  const CallPlanner planner(plans, input.around);
  const auto plan = planner.plan(input.request, &input.line);
  if (plan.refusal) {
    require(plan.dial.empty());
    require(*plan.refusal != Refusal::kNoLine);
    return 0;
  }

  const EmergencyNumbers emergencies(plans, input.around, "");
  const auto isEmergency = [&](std::string_view text) { return emergencies.contains(text); };
  std::string stored = input.around.settings.prefix;
  std::erase_if(stored, [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
  // The context's own region may make it one as well, which only the planner has read.
  if (!plan.isEmergency) {
    require(passesLastCheck({.dial = plan.dial,
                             .isAnonymous = input.request.isAnonymous,
                             .lineHides = plan.hiding == Hiding::kLine,
                             .prefix = stored,
                             .knownPrefixes = planner.knownPrefixes(),
                             .isEmergency = isEmergency}));
    require(!isEmergency(std::string_view(plan.dial).substr(plan.prefix.size())));
    require(!input.request.isAnonymous || plan.hiding != Hiding::kNo);
  } else {
    require(plan.hiding == Hiding::kNo && isDigits(plan.dial));
  }
  require((plan.hiding == Hiding::kPrefix) == !plan.prefix.empty());
  require(plan.dial.starts_with(plan.prefix) && plan.dial.size() > plan.prefix.size());

  if (!input.request.isAsIs && digitsIn(plan.dial) <= 40 && isFoundAgain(plans, plan)) {
    CallRequest again = input.request;
    again.text = plan.dial;
    const auto second = planner.plan(again, &input.line);
    // A context's own emergency number is none without the context.
    if (!plan.isEmergency || isEmergency(plan.dial)) {
      require(!second.refusal);
      require(second.dial == plan.dial && second.hiding == plan.hiding);
    }
  }
  return 0;
}
