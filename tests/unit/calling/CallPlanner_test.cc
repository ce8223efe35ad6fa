#include "calling/CallPlanner.h"

#include <set>

#include <gtest/gtest.h>

#include "linux/PhoneNumbers.h"
#include "prefix/prefixes.h"

namespace {

// Everything that a rule looks at. Where nothing else is said the settings are new, the phone is at
// home in Germany, and the line takes a prefix.
struct Around {
  std::string prefix = "#31#";
  std::string custom{};
  std::string country = "Most other counties";
  std::string network = "DE";
  std::string sim = "DE";
  std::string given{};
  std::string locale = "DE";
  std::vector<std::string> emergency{};
  std::optional<bool> hasSIM = true;
  bool readable = true;
  bool open = false;
  bool asIs = false;
  bool hides = false;
  bool takesPlus = true;
  bool inCall = false;
  bool noLine = false;
};

struct Row {
  std::string why;
  std::string text;
  // What is dialled, how ("#31#0171 prefix"), and the notices; or "refused CODE" and the notices.
  std::string outcome;
  Around around{};
};

// An emergency number that shows only once it is written as it is dialled.
bool isFoundLate(std::string_view text) {
  return text == "+1911";
}

CallPlan planFor(const std::string& text, const Around& around) {
  static const PhoneNumbers plans;
  const CallPlanner planner(
      plans, {.settings = {around.readable, around.prefix, around.custom, around.country},
              .network = {around.hasSIM, around.network, around.sim, around.emergency},
              .givenRegion = around.given,
              .localeRegion = around.locale});
  const LineFacts line{"test", around.hides, around.takesPlus, around.inCall};
  const CallRequest request{text, !around.open, around.asIs};
  const auto plan = planner.plan(request, around.noLine ? nullptr : &line);
  EXPECT_EQ(planner.isEmergency(request), plan.isEmergency && !isFoundLate(text)) << text;
  return plan;
}

std::string shown(const CallPlan& plan) {
  std::string text = plan.refusal ? "refused " + std::string(codeOf(*plan.refusal))
                                  : plan.dial + " " + std::string(codeOf(plan.hiding));
  for (const auto notice : plan.notices) {
    text += " " + std::string(codeOf(notice));
  }
  return text;
}

void expectAll(const std::vector<Row>& rows) {
  for (const auto& row : rows) {
    EXPECT_EQ(shown(planFor(row.text, row.around)), row.outcome) << row.why << ": " << row.text;
  }
}

// Nobody knows where the phone is.
Around nowhere(std::string prefix = "#31#") {
  return {.prefix = std::move(prefix), .network = "", .sim = "", .locale = "", .hasSIM = {}};
}

Around in(std::string region, std::string prefix = "#31#") {
  return {.prefix = std::move(prefix), .network = region, .sim = region, .locale = ""};
}

TEST(CallPlanner, PutsThePrefixInFront) {
  expectAll({
      {"a number of this country", "0171 5550134", "#31#01715550134 prefix"},
      {"a number of this town", "5550134", "#31#5550134 prefix"},
      {"three digits that are no emergency number", "116", "#31#116 prefix"},
      {"an address", "tel:+49-171-5550134", "#31#+491715550134 prefix"},
      {"the rest is told", "0171 5550134,22", "#31#01715550134 prefix rest-not-dialled"},
      {"junk", "hello", "refused not-a-number"},
      {"an attempt to inject", "1;+CGMI", "refused not-a-number"},
  });
}

TEST(CallPlanner, EveryPrefixOfTheTableGoesInFrontOfANationalNumber) {
  for (const auto& [country, prefix] : prefixes) {
    std::string text(prefix);
    while (text.ends_with(' ')) {
      text.pop_back();
    }
    const auto plan = planFor("2025550123", in("US", std::string(prefix)));
    EXPECT_EQ(plan.dial, text + "2025550123") << country;
    EXPECT_EQ(plan.prefix, text) << country;
  }
}

TEST(CallPlanner, EmergencyNumbersAreDialledBare) {
  expectAll({
      {"everywhere", "112", "112 no emergency"},
      {"everywhere, the other one", "911", "911 no emergency"},
      {"though nobody knows where", "911", "911 no emergency", nowhere()},
      {"with separators", "1-1 2", "112 no emergency"},
      {"in other digits", "\u0661\u0661\u0662", "112 no emergency"},
      {"as an address", "tel:112", "112 no emergency"},
      {"as an address with a foreign context", "tel:112;phone-context=+81", "112 no emergency"},
      {"with a rest", "112,1", "112 no emergency rest-not-dialled"},
      {"behind the stored prefix", "#31#112", "112 no emergency"},
      {"behind a prefix that shows", "*31#112", "112 no emergency"},
      {"behind another country's prefix", "*67911", "911 no emergency"},
      {"behind another country's prefix that shows", "*82911", "911 no emergency"},
      {"behind a prefix of the table alone", "*43112", "112 no emergency"},
      {"behind a prefix of the table with a hash", "*23#112", "112 no emergency"},
      {"behind the custom prefix", "*99112", "112 no emergency", {.custom = "*99"}},
      {"behind what is no prefix, though it is the custom one",
       "*112",
       "refused code",
       {.custom = "*"}},
      {"behind the stored prefix that is no country's",
       "*98112",
       "112 no emergency",
       {.prefix = "*98"}},
      {"behind 141 in Britain", "141999", "999 no emergency", in("GB", "#31#")},
      {"behind 141 in Ireland", "141999", "999 no emergency", in("IE", "#31#")},
      {"141 is a number's beginning elsewhere", "141112", "#31#141112 prefix"},
      {"unless it is stored", "141112", "112 no emergency", {.prefix = "141"}},
      {"or the custom one", "141112", "112 no emergency", {.custom = "141"}},
      {"behind 184 in Japan", "184110", "110 no emergency", in("JP", "#31#")},
      {"184 is a number's beginning elsewhere", "184112", "#31#184112 prefix"},
      {"unless it is stored", "184112", "112 no emergency", {.prefix = "184"}},
      {"the region's own", "110", "110 no emergency"},
      {"that of another region is none", "999", "#31#999 prefix"},
      {"of the region that is given", "999", "999 no emergency", {.given = "GB"}},
      {"of the network's", "999", "999 no emergency", {.network = "GB"}},
      {"of the SIM's", "999", "999 no emergency", {.sim = "GB"}},
      {"of the chosen country's", "999", "999 no emergency", {.country = "UK "}},
      {"of the context's", "tel:999;phone-context=+44", "999 no emergency"},
      {"of the locale's, where nothing else is known",
       "999",
       "999 no emergency",
       {.network = "", .sim = "", .locale = "GB"}},
      {"not of the locale's otherwise", "999", "#31#999 prefix", {.locale = "GB"}},
      {"that the modem lists", "17", "17 no emergency", {.emergency = {"17"}}},
      {"a longer one that it lists", "123456", "123456 no emergency", {.emergency = {"123456"}}},
      {"what it lists is no ordinary number",
       "01715550134",
       "#31#01715550134 prefix",
       {.emergency = {"01715550134"}}},
      {"nor one of seven digits", "1234567", "#31#1234567 prefix", {.emergency = {"1234567"}}},
      {"nor one digit", "1", "refused code", {.emergency = {"1"}}},
      {"nor a code", "*1", "refused code", {.emergency = {"*1"}}},
      {"nothing listed that is empty", "#31#", "refused code", {.emergency = {""}}},
      {"without a SIM", "08", "08 no emergency", {.hasSIM = false}},
      {"without a SIM", "000", "000 no emergency", {.hasSIM = false}},
      {"without a SIM", "118", "118 no emergency", {.hasSIM = false}},
      {"without a SIM", "119", "119 no emergency", {.hasSIM = false}},
      {"without a SIM", "999", "999 no emergency", {.hasSIM = false}},
      {"without a SIM", "110", "110 no emergency",
       [] {
         auto around = in("US");
         around.hasSIM = false;
         return around;
       }()},
      {"with a SIM none of these", "119", "#31#119 prefix"},
      {"where no modem can tell, none of these", "119", "#31#119 prefix", {.hasSIM = {}}},
      {"compared whole", "1123", "#31#1123 prefix"},
      {"compared whole, as long as it is", "112112345", "#31#112112345 prefix"},
      {"what a prefix would have to be stripped of twice", "#31#*31#112", "refused code"},
      {"another call does not stand in its way", "112", "112 no emergency", {.inCall = true}},
      {"nor unreadable settings", "112", "112 no emergency", {.readable = false}},
      {"nor a missing prefix", "112", "112 no emergency", {.prefix = ""}},
      {"nor a bad one", "112", "112 no emergency", {.prefix = "bad"}},
      {"nor a line that hides", "112", "112 no emergency", {.hides = true}},
      {"an open call is the same", "#31#112", "112 no emergency", {.open = true}},
      {"codes dialled as they are as well", "#31#112", "112 no emergency", {.asIs = true}},
      {"without a line there is none", "112", "refused no-line emergency", {.noLine = true}},
  });
}

TEST(CallPlanner, CodesAreNoNumbers) {
  expectAll({
      {"a prefix without a number", "#31#", "refused code"},
      {"another one", "*67", "refused code"},
      {"digits that are a prefix without a number", "141", "refused code", in("GB")},
      {"digits that may be the number's own, and two more", "14122", "#31#14122 prefix", in("GB")},
      {"which are a number elsewhere", "141", "#31#141 prefix"},
      {"what ends in a hash", "123#", "refused code"},
      {"a query", "*100#", "refused code"},
      {"a query behind a prefix", "*67*100#", "refused code"},
      {"a hash at the end behind a prefix", "#31#100#", "refused code"},
      {"no known prefix", "*21*0171#", "refused code"},
      {"no known prefix, with a number", "*99555", "refused code"},
      {"a star inside", "0171*5", "refused code"},
      {"a star behind the prefix", "#31#0171*5", "refused code"},
      {"a star inside an international number", "+49171*5", "refused code"},
      {"one digit", "1", "refused code"},
      {"two digits", "12", "refused code"},
      {"two digits behind a prefix", "#31#12", "refused code"},
      {"three are a number", "115", "#31#115 prefix"},
      {"an open call is refused them too", "*100#", "refused code", {.open = true}},
      {"one who knows dials them", "*100#", "*100# no", {.open = true, .asIs = true}},
      {"one who knows dials two digits", "12", "#31#12 prefix", {.asIs = true}},
      {"one who knows dials a code behind the prefix",
       "*99555",
       "#31#*99555 prefix",
       {.asIs = true}},
      {"one who knows puts the prefix there", "#31#0171", "#31#0171 prefix", {.asIs = true}},
      {"one who knows may show", "*31#0171", "#31#*31#0171 prefix", {.asIs = true}},
      {"one who knows dials nothing that is no number",
       "1;2x",
       "refused not-a-number",
       {.asIs = true}},
  });
}

TEST(CallPlanner, AContextGivesAnInternationalNumberOrNone) {
  expectAll({
      {"joined", "tel:30123456;phone-context=+49", "#31#+4930123456 prefix"},
      {"joined behind a prefix", "tel:%2331%2330123456;phone-context=+49",
       "#31#+4930123456 prefix"},
      {"a name", "tel:30123456;phone-context=example.com", "refused context"},
      {"a country's letters", "tel:30123456;phone-context=de", "refused context"},
      {"digits without a plus", "tel:30123456;phone-context=49", "refused context"},
      {"no number of that country", "tel:123;phone-context=+49", "refused context"},
      {"no country", "tel:30123456;phone-context=+999", "refused context"},
      {"of an international number", "tel:+4930123456;phone-context=+49", "refused context"},
      {"one who knows has it joined too",
       "tel:30123456;phone-context=+49",
       "#31#+4930123456 prefix",
       {.asIs = true}},
      {"an open call has it joined",
       "tel:30123456;phone-context=+49",
       "+4930123456 no",
       {.open = true}},
  });
}

TEST(CallPlanner, AValidInternationalNumberHasOneForm) {
  expectAll({
      {"the zero in brackets goes", "+49 (0)30 123456", "#31#+4930123456 prefix"},
      {"behind a prefix", "#31#+49 (0)30 123456", "#31#+4930123456 prefix"},
      {"Italy's zero stays", "+39 06 69812345", "#31#+390669812345 prefix"},
      {"what is not valid stays as it is", "+49 (0)1", "#31#+4901 prefix"},
      {"an open call has the same", "+49 (0)30 123456", "+4930123456 no", {.open = true}},
      {"one who knows has it as it stands",
       "+49 (0)30 123456",
       "#31#+49030123456 prefix",
       {.asIs = true}},
  });
}

TEST(CallPlanner, APrefixThatIsThereGivesWayToTheStoredOne) {
  expectAll({
      {"the stored one", "#31#01715550134", "#31#01715550134 prefix"},
      {"another country's", "*6701715550134", "#31#01715550134 prefix"},
      {"that of a row of the table", "*23#01715550134", "#31#01715550134 prefix"},
      {"the custom one", "*9901715550134", "#31#01715550134 prefix", {.custom = "*99"}},
      {"the longest that is there", "#31#01715550134", "#31#01715550134 prefix", {.custom = "#31"}},
      {"in front of another", "#31#14102079460000", "#31#02079460000 prefix", in("GB")},
      {"digits in front of a valid number", "14102079460000", "#31#02079460000 prefix", in("GB")},
      {"digits in front of no valid number", "14112345", "#31#14112345 prefix", in("GB")},
      {"digits elsewhere", "14102079460000", "#31#14102079460000 prefix", in("DE")},
      {"digits that are the number's own", "14112345", "14114112345 prefix", in("GB", "141")},
      {"digits where the whole is valid", "0301234567", "0300301234567 prefix", in("DE", "030")},
      {"a code that shows", "*31#01715550134", "refused shows"},
      {"another that shows", "*822025550123", "refused shows", in("US")},
      {"which is the stored one", "*31#02212345678", "*31#02212345678 prefix may-show",
       in("IN", "*31#")},
      {"the other one, stored", "*822025550123", "*822025550123 prefix may-show", in("US", "*82")},
      {"an open call keeps it", "#31#01715550134", "#31#01715550134 no", {.open = true}},
      {"an open call may show", "*31#01715550134", "*31#01715550134 no", {.open = true}},
  });
}

TEST(CallPlanner, ThePrefixHasToBeOne) {
  expectAll({
      {"blanks at its ends go", "01715550134", "#31#01715550134 prefix", {.prefix = " #31# "}},
      {"empty", "01715550134", "refused no-prefix", {.prefix = ""}},
      {"blanks alone", "01715550134", "refused no-prefix", {.prefix = "  "}},
      {"a letter", "01715550134", "refused bad-prefix", {.prefix = "#31a"}},
      {"a blank inside", "01715550134", "refused bad-prefix", {.prefix = "#3 1#"}},
      {"a plus", "01715550134", "refused bad-prefix", {.prefix = "+31#"}},
      {"eight characters", "01715550134", "#123456#01715550134 prefix", {.prefix = "#123456#"}},
      {"nine", "01715550134", "refused bad-prefix", {.prefix = "#1234567#"}},
      {"no digit", "01715550134", "refused bad-prefix", {.prefix = "*#"}},
      {"an emergency number", "01715550134", "refused bad-prefix", {.prefix = "112"}},
      {"an emergency number with a hash", "01715550134", "refused bad-prefix", {.prefix = "112#"}},
      {"the beginning of one", "0301234567", "refused bad-prefix", {.prefix = "11"}},
      {"a code that shows with the number's first digit",
       "2025550134",
       "refused bad-prefix",
       {.prefix = "*8"}},
      {"not with another one", "3025550134", "*83025550134 prefix", {.prefix = "*8"}},
      {"a code that hides another number", "70171555", "refused bad-prefix", {.prefix = "*6"}},
      {"which another number does not complete",
       "5301234567",
       "115301234567 prefix",
       {.prefix = "11"}},
      {"behind a code digits do not run on",
       "0301234567",
       "*110301234567 prefix",
       {.prefix = "*11"}},
      {"one that only the written number completes",
       "+49301234567",
       "refused bad-prefix",
       {.prefix = "11"}},
      {"settings that cannot be read", "01715550134", "refused no-settings", {.readable = false}},
      {"an open call needs none", "01715550134", "01715550134 no", {.prefix = "", .open = true}},
      {"an open call needs no settings",
       "01715550134",
       "01715550134 no",
       {.readable = false, .open = true}},
      {"a line that hides needs one as well",
       "01715550134",
       "refused no-prefix",
       {.prefix = "", .hides = true}},
  });
}

TEST(CallPlanner, InternationalNumbersBehindAPrefixWithoutHash) {
  const auto americaWithHash = in("US", "#31#");
  auto refusesPlus = in("DE", "#31#");
  refusesPlus.takesPlus = false;
  auto givenBritain = in("US", "141");
  givenBritain.given = "GB";
  auto abroad = in("US", "*67");
  abroad.network = "GB";
  Around chosen{.prefix = "*67", .country = "US", .network = "", .sim = "DE", .locale = "DE"};
  Around localeOnly{.prefix = "*67", .network = "", .sim = "", .locale = "US"};
  expectAll({
      {"stays behind a hash", "+493012345678", "#31#+493012345678 prefix", americaWithHash},
      {"of one's own country", "+12025550123", "*672025550123 prefix", in("US", "*67")},
      {"of another with the same code", "+14165550123", "*674165550123 prefix", in("US", "*67")},
      {"of one's own country, with its zero", "+442079460000", "14102079460000 prefix",
       in("GB", "141")},
      {"abroad from the US", "+493012345678", "*67011493012345678 prefix", in("US", "*67")},
      {"abroad from Japan", "+493012345678", "184010493012345678 prefix", in("JP", "184")},
      {"abroad from Britain", "+493012345678", "14100493012345678 prefix", in("GB", "141")},
      {"abroad from Israel, which has several that take 00", "+493012345678",
       "*4300493012345678 prefix", in("IL", "*43")},
      {"abroad from Korea, which has several that do not", "+493012345678", "refused needs-region",
       in("KR", "*67")},
      {"on a line that refuses the plus there", "+493012345678", "#31#03012345678 prefix",
       refusesPlus},
      {"on a line that refuses the plus there, abroad", "+12025550123", "#31#0012025550123 prefix",
       refusesPlus},
      {"the region that is given", "+442079460000", "14102079460000 prefix", givenBritain},
      {"the network's before the SIM's", "+442079460000", "*6702079460000 prefix roaming", abroad},
      {"the chosen country's where no modem can tell, not the SIM's", "+12025550123",
       "*672025550123 prefix", chosen},
      {"never the locale's", "+12025550123", "refused needs-region", localeOnly},
      {"nowhere", "+12025550123", "refused needs-region", nowhere("*67")},
      {"a plus in front of nobody's code", "+999123", "refused needs-region", in("US", "*67")},
      {"one that is two digits at home", "+49 12", "refused code", refusesPlus},
      {"an emergency number in disguise, beside another call", "+1911", "911 no emergency",
       [] {
         auto busy = in("US", "*67");
         busy.inCall = true;
         return busy;
       }()},
      {"an emergency number in disguise", "+1911", "911 no emergency", in("US", "*67")},
      {"a line that hides takes it as it is",
       "+493012345678",
       "+493012345678 line",
       {.prefix = "*67", .network = "US", .sim = "US", .hides = true, .takesPlus = false}},
  });
}

TEST(CallPlanner, TellsWhatThePrefixMayMeanAbroad) {
  auto abroad = in("US", "*67");
  abroad.network = "MX";
  auto withHash = abroad;
  withHash.prefix = "#31#";
  auto hidden = abroad;
  hidden.hides = true;
  auto unknown = abroad;
  unknown.sim = "";
  auto noNetwork = abroad;
  noNetwork.network = "";
  expectAll({
      {"a prefix of the phone's own country", "5550134", "*675550134 prefix roaming", abroad},
      {"one that every network knows", "5550134", "#31#5550134 prefix", withHash},
      {"none at all", "5550134", "5550134 line", hidden},
      {"where the SIM's country is not known", "5550134", "*675550134 prefix", unknown},
      {"where the network's is not known", "5550134", "*675550134 prefix", noNetwork},
      {"at home", "5550134", "*675550134 prefix", in("US", "*67")},
  });
}

TEST(CallPlanner, ALineThatHidesGetsTheBareNumber) {
  expectAll({
      {"with the wish", "01715550134", "01715550134 line", {.hides = true}},
      {"without the prefix that was there", "#31#01715550134", "01715550134 line", {.hides = true}},
      {"an open call has no wish", "01715550134", "01715550134 no", {.open = true, .hides = true}},
  });
}

TEST(CallPlanner, NothingIsPlacedBesideAnotherCallOrWithoutALine) {
  expectAll({
      {"another call", "01715550134", "refused in-call", {.inCall = true}},
      {"another call, open", "01715550134", "refused in-call", {.open = true, .inCall = true}},
      {"no line", "01715550134", "refused no-line", {.noLine = true}},
      {"no line, open", "01715550134", "refused no-line", {.open = true, .noLine = true}},
      {"what is no number is told first", "x", "refused not-a-number", {.noLine = true}},
  });
}

TEST(CallPlanner, CostlyNumbersAreTold) {
  expectAll({
      {"premium rate", "0900 1 123456", "#31#09001123456 prefix premium"},
      {"behind a prefix", "#31#0900 1 123456", "#31#09001123456 prefix premium"},
      {"shared cost", "0180 1 123456", "#31#01801123456 prefix premium"},
      {"international", "+49 900 1 123456", "#31#+499001123456 prefix premium"},
      {"an open call as well", "0900 1 123456", "09001123456 no premium", {.open = true}},
      {"free of charge", "0800 1234567", "#31#08001234567 prefix"},
  });
}

TEST(CallPlanner, PlanningWhatWasPlannedGivesItAgain) {
  struct Case {
    std::string text;
    Around around;
  };
  for (const auto& [text, around] : std::vector<Case>{
           {"01715550134", {}},
           {"+4917155501340", {}},
           {"01715550134", in("DE", "*23#")},
           {"+12025550123", in("US", "*67")},
           {"+442079460000", in("GB", "141")},
           {"02212345678", in("IN", "*31#")},
           {"112", {}},
       }) {
    const auto once = planFor(text, around);
    const auto twice = planFor(once.dial, around);
    EXPECT_EQ(shown(twice), shown(once)) << text;
  }
}

TEST(CallPlanner, TellsTheRegionThatCounts) {
  const auto region = [](const Around& around) { return planFor("01715550134", around).region; };
  Around all{.country = "Japan", .network = "FR", .sim = "GB", .given = "US", .locale = "DE"};
  EXPECT_EQ(region(all), "US");
  all.given = "";
  EXPECT_EQ(region(all), "FR");
  all.network = "";
  EXPECT_EQ(region(all), "GB");
  all.sim = "";
  EXPECT_EQ(region(all), "JP");
  all.country = "Custom (enter below)";
  EXPECT_EQ(region(all), "DE");
  all.locale = "";
  EXPECT_EQ(region(all), "");
}

TEST(CallPlanner, ARefusedCallHasNothingToDial) {
  for (const auto* text : {"x", "*100#", "*31#0171"}) {
    const auto plan = planFor(text, {});
    ASSERT_TRUE(plan.refusal);
    EXPECT_EQ(plan.dial, "");
    EXPECT_EQ(plan.prefix, "");
    EXPECT_EQ(plan.hiding, Hiding::kNo);
  }
  EXPECT_EQ(planFor("01715550134", {.inCall = true}).dial, "");
}

TEST(CallPlanner, EachRefusalAndNoticeHasItsCodeAndSentence) {
  std::set<std::string_view> told;
  for (int i = 0; i <= static_cast<int>(Refusal::kLastCheck); ++i) {
    EXPECT_TRUE(told.insert(codeOf(static_cast<Refusal>(i))).second);
    EXPECT_TRUE(told.insert(sentenceOf(static_cast<Refusal>(i))).second);
  }
  for (int i = 0; i <= static_cast<int>(Notice::kPremium); ++i) {
    EXPECT_TRUE(told.insert(codeOf(static_cast<Notice>(i))).second);
    EXPECT_TRUE(told.insert(sentenceOf(static_cast<Notice>(i))).second);
  }
  EXPECT_FALSE(told.contains(""));
}

}  // namespace
