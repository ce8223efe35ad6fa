#include "calling/CallPlanner.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "calling/Characters.h"
#include "calling/countries.h"
#include "calling/lastCheck.h"
#include "prefix/prefixes.h"

namespace {

constexpr std::size_t kLongestPrefix = 8;
constexpr std::size_t kLongestShortCode = 2;

// For this call alone (3GPP TS 22.030, annex B), and in North America.
constexpr std::string_view kHides = "#31#";
constexpr std::string_view kShows = "*31#";
constexpr std::string_view kHidesInNorthAmerica = "*67";
constexpr std::string_view kShowsInNorthAmerica = "*82";
// Digits that are ordinary ones everywhere else.
constexpr std::string_view kHidesInBritainAndIreland = "141";
constexpr std::string_view kHidesInJapan = "184";

std::string withoutBlanksAtItsEnds(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto first = text.find_first_not_of(kBlanks);
  return first == std::string_view::npos
             ? std::string()
             : std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

bool hasDigit(std::string_view text) {
  return text.find_first_of("0123456789") != std::string_view::npos;
}

bool canBeAPrefix(std::string_view text) {
  return text.size() <= kLongestPrefix && isDiallable(text) && hasDigit(text);
}

// Networks take one or two digits alone for a service of theirs (3GPP TS 22.030, 6.5.3.2).
bool isShortCode(std::string_view text) {
  return isDigits(text) && text.size() <= kLongestShortCode;
}

std::string firstKnown(std::initializer_list<std::string_view> regions) {
  const auto* const found =
      std::ranges::find_if(regions, [](auto region) { return !region.empty(); });
  return found == regions.end() ? std::string() : std::string(*found);
}

std::vector<std::string> prefixesKnownIn(std::string_view region, std::string_view stored,
                                         std::string_view custom) {
  std::vector<std::string> known{std::string(kHides), std::string(kShows),
                                 std::string(kHidesInNorthAmerica),
                                 std::string(kShowsInNorthAmerica)};
  for (const auto& [country, prefix] : prefixes) {
    auto text = withoutBlanksAtItsEnds(prefix);
    if (!isDigits(text)) {
      known.push_back(std::move(text));
    }
  }
  if (region == "GB" || region == "IE") {
    known.emplace_back(kHidesInBritainAndIreland);
  }
  if (region == "JP") {
    known.emplace_back(kHidesInJapan);
  }
  for (const auto own : {stored, custom}) {
    if (canBeAPrefix(own)) {
      known.emplace_back(own);
    }
  }
  std::ranges::sort(known, [](const std::string& left, const std::string& right) {
    return left.size() != right.size() ? left.size() > right.size() : left < right;
  });
  known.erase(std::unique(known.begin(), known.end()), known.end());
  return known;
}

}  // namespace

// One request on its way through the rules.
class CallPlanner::Planning {
 public:
  Planning(const CallPlanner& planner, const CallRequest& request, const LineFacts* line)
      : planner_(planner),
        request_(request),
        line_(line),
        read_(readNumber(request.text, planner.knownPrefixes_)),
        emergencies_(planner.plans_, planner.surroundings_,
                     read_ ? planner.plans_.regionOfContext(read_->context) : "") {
    plan_.line = line ? line->name : "";
    plan_.region = planner.region_;
    if (read_) {
      plan_.number = read_->number;
      number_ = read_->number;
    }
  }

  std::optional<std::string> emergencyNumber() const {
    return read_ ? emergencyIn(read_->number) : std::nullopt;
  }

  CallPlan plan() && {
    const auto refusal = build();
    plan_.refusal = refusal    ? refusal
                    : passes() ? std::nullopt
                               : std::optional(Refusal::kLastCheck);
    if (plan_.refusal) {
      plan_.dial.clear();
      plan_.prefix.clear();
      plan_.hiding = Hiding::kNo;
    }
    return std::move(plan_);
  }

 private:
  using Outcome = std::optional<Refusal>;

  Outcome build() {
    if (!read_) {
      return Refusal::kNotANumber;
    }
    if (read_->hasRest) {
      plan_.notices.push_back(Notice::kRestNotDialled);
    }
    if (const auto emergency = emergencyNumber()) {
      return dialEmergency(*emergency);
    }
    if (auto refused = readCodes()) {
      return refused;
    }
    noticeCosts();
    if (auto refused = request_.isAnonymous ? hide() : dialAsItStands()) {
      return refused;
    }
    if (plan_.isEmergency) {
      return std::nullopt;
    }
    if (!line_) {
      return Refusal::kNoLine;
    }
    return line_->inCall ? Outcome(Refusal::kInCall) : std::nullopt;
  }

  std::optional<std::string> emergencyIn(std::string_view number) const {
    if (emergencies_.contains(number)) {
      return std::string(number);
    }
    for (const auto& prefix : planner_.knownPrefixes_) {
      if (number.starts_with(prefix) && emergencies_.contains(number.substr(prefix.size()))) {
        return std::string(number.substr(prefix.size()));
      }
    }
    return std::nullopt;
  }

  Outcome dialEmergency(const std::string& number) {
    plan_.dial = number;
    plan_.isEmergency = true;
    plan_.hiding = Hiding::kNo;
    plan_.prefix.clear();
    plan_.notices = {Notice::kEmergency};
    if (read_->hasRest) {
      plan_.notices.push_back(Notice::kRestNotDialled);
    }
    return line_ ? std::nullopt : Outcome(Refusal::kNoLine);
  }

  // The longest known prefix in front; empty for none.
  std::string_view prefixOf(std::string_view number) const {
    const auto found = std::ranges::find_if(
        planner_.knownPrefixes_, [&](const auto& prefix) { return number.starts_with(prefix); });
    return found == planner_.knownPrefixes_.end() ? std::string_view() : *found;
  }

  // Refuses what is no number to call, and gives each international number its one form.
  Outcome readCodes() {
    const auto known = prefixOf(number_);
    const bool hasCode = !known.empty() && !isDigits(known);
    const std::string front(hasCode ? known : "");
    std::string rest = number_.substr(front.size());
    if (!request_.isAsIs) {
      const bool isPrefixAlone = number_ == known;
      if (isPrefixAlone || isShortCode(rest) || rest.find_first_of("*#") != std::string::npos) {
        return Refusal::kCode;
      }
    }
    if (!read_->context.empty()) {
      const auto joined = planner_.plans_.parseInContext(rest, read_->context);
      if (!joined || !joined->isValid) {
        return Refusal::kContext;
      }
      rest = joined->international;
    } else if (!request_.isAsIs && rest.starts_with('+')) {
      const auto parsed = planner_.plans_.parse(rest, planner_.region_);
      if (parsed && parsed->isValid) {
        rest = parsed->international;
      }
    }
    number_ = front + rest;
    return std::nullopt;
  }

  void noticeCosts() {
    const auto parsed =
        planner_.plans_.parse(number_.substr(prefixOf(number_).size()), planner_.region_);
    if (parsed && parsed->isCostly) {
      plan_.notices.push_back(Notice::kPremium);
    }
  }

  Outcome dialAsItStands() {
    plan_.dial = number_;
    return std::nullopt;
  }

  Outcome hide() {
    if (auto refused = request_.isAsIs ? std::nullopt : takePrefixesOff()) {
      return refused;
    }
    if (auto refused = checkPrefix()) {
      return refused;
    }
    const std::string& prefix = planner_.storedPrefix_;
    const bool isThere = request_.isAsIs && number_.starts_with(prefix);
    if (isThere) {
      number_.erase(0, prefix.size());
    }
    if (line_ && line_->hidesByItself) {
      plan_.dial = number_;
      plan_.hiding = Hiding::kLine;
    } else {
      if (auto refused = writeBehindPrefix()) {
        return refused;
      }
      plan_.dial = prefix + number_;
      plan_.hiding = Hiding::kPrefix;
      plan_.prefix = prefix;
    }
    if (const auto emergency = emergencyIn(number_)) {
      return dialEmergency(*emergency);
    }
    // What was written out for the region may be too little to be a number.
    if (!request_.isAsIs && isShortCode(number_)) {
      return Refusal::kCode;
    }
    if (plan_.hiding == Hiding::kPrefix) {
      // With the number's first digits it may be another code, before another number.
      const bool isAnotherCode = prefixOf(plan_.dial) != prefix;
      if (isAnotherCode || emergencies_.beginsWithOne(plan_.dial)) {
        return Refusal::kBadPrefix;
      }
      noticePrefix();
    }
    return std::nullopt;
  }

  bool isStored(std::string_view prefix) const { return planner_.storedPrefix_ == prefix; }

  // The prefix in force comes in its place.
  Outcome takePrefixesOff() {
    while (true) {
      const auto prefix = prefixOf(number_);
      if (prefix.empty()) {
        return std::nullopt;
      }
      if ((prefix == kShows || prefix == kShowsInNorthAmerica) && !isStored(prefix)) {
        return Refusal::kShows;
      }
      if (isDigits(prefix) && !isInFrontOfANumber(prefix)) {
        return std::nullopt;
      }
      number_.erase(0, prefix.size());
    }
  }

  // Digits may as well be the beginning of the number itself.
  bool isInFrontOfANumber(std::string_view prefix) const {
    const auto isValid = [this](std::string_view number) {
      const auto parsed = planner_.plans_.parse(number, planner_.region_);
      return parsed && parsed->isValid;
    };
    return !planner_.region_.empty() && !isValid(number_) &&
           isValid(std::string_view(number_).substr(prefix.size()));
  }

  Outcome checkPrefix() const {
    const std::string& prefix = planner_.storedPrefix_;
    if (!planner_.surroundings_.settings.areReadable) {
      return Refusal::kNoSettings;
    }
    if (prefix.empty()) {
      return Refusal::kNoPrefix;
    }
    const bool isUsable = canBeAPrefix(prefix) && !emergencies_.beginsWithOne(prefix);
    return isUsable ? std::nullopt : Outcome(Refusal::kBadPrefix);
  }

  // Networks read a `+` only at the very front, or behind a code that ends in `#`.
  Outcome writeBehindPrefix() {
    const bool isPlain = !number_.starts_with('+');
    const bool mayStay =
        planner_.storedPrefix_.ends_with('#') && (!line_ || line_->takesPlusBehindPrefix);
    if (isPlain || mayStay) {
      return std::nullopt;
    }
    const std::string region = placeOfDialling();
    const auto parsed = planner_.plans_.parse(number_, region);
    if (region.empty() || !parsed) {
      return Refusal::kNeedsRegion;
    }
    if (parsed->callingCode == planner_.plans_.callingCode(region)) {
      number_ = parsed->national;
      return std::nullopt;
    }
    const std::string digits = number_.substr(1);
    const auto prefix = planner_.plans_.internationalPrefix(region);
    const std::string dialled = prefix.value_or("00") + digits;
    if (!prefix) {
      const auto back = planner_.plans_.parse(dialled, region);
      if (!back || back->international != number_) {
        return Refusal::kNeedsRegion;
      }
    }
    number_ = dialled;
    return std::nullopt;
  }

  // Where the call enters the network: where the user lives says nothing of that once a modem does.
  std::string placeOfDialling() const {
    const auto& around = planner_.surroundings_;
    return firstKnown(
        {around.givenRegion, around.network.region, regionOfCountry(around.settings.country)});
  }

  void noticePrefix() {
    const auto& network = planner_.surroundings_.network;
    if (isStored(kShows) || isStored(kShowsInNorthAmerica)) {
      plan_.notices.push_back(Notice::kMayShow);
    }
    const bool isAbroad = !network.region.empty() && !network.simRegion.empty() &&
                          network.region != network.simRegion;
    if (isAbroad && !plan_.prefix.ends_with('#')) {
      plan_.notices.push_back(Notice::kRoaming);
    }
  }

  bool passes() const {
    return passesLastCheck({
        .dial = plan_.dial,
        .isAnonymous = request_.isAnonymous,
        .lineHides = plan_.hiding == Hiding::kLine,
        .prefix = planner_.storedPrefix_,
        .knownPrefixes = planner_.knownPrefixes_,
        .isEmergency = [this](std::string_view text) { return emergencies_.contains(text); },
    });
  }

  const CallPlanner& planner_;
  const CallRequest& request_;
  const LineFacts* line_;
  std::optional<ReadNumber> read_;
  EmergencyNumbers emergencies_;
  std::string number_;  // what is still to be dialled
  CallPlan plan_;
};

CallPlanner::CallPlanner(const NumberingPlans& plans, Surroundings surroundings)
    : plans_(plans),
      surroundings_(std::move(surroundings)),
      storedPrefix_(withoutBlanksAtItsEnds(surroundings_.settings.prefix)),
      region_(firstKnown(
          {surroundings_.givenRegion, surroundings_.network.region, surroundings_.network.simRegion,
           regionOfCountry(surroundings_.settings.country), surroundings_.localeRegion})),
      knownPrefixes_(prefixesKnownIn(
          region_, storedPrefix_, withoutBlanksAtItsEnds(surroundings_.settings.customPrefix))) {}

bool CallPlanner::isEmergency(const CallRequest& request) const {
  return Planning(*this, request, nullptr).emergencyNumber().has_value();
}

CallPlan CallPlanner::plan(const CallRequest& request, const LineFacts* line) const {
  return Planning(*this, request, line).plan();
}
