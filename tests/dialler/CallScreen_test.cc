#include "dialler/model/CallScreen.h"

#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using State = CallScreen::State;
using Outcome = CallResult::Outcome;

// Keeps what is asked for until the test answers.
class HeldService final : public CallService {
 public:
  void offer(const std::string& text, std::function<void(CallOffer)> answer) override {
    texts.push_back(text);
    offers.push_back(std::move(answer));
  }
  void place(const std::string& text, bool isAnonymous, const CallPlan& agreed,
             std::function<void(CallResult)> answer) override {
    placed.push_back(agreed.dial);
    placedTexts.push_back(text);
    anonymous.push_back(isAnonymous);
    results.push_back(std::move(answer));
  }
  void giveUp() override { ++givenUp; }

  std::vector<std::string> texts;
  std::vector<std::function<void(CallOffer)>> offers;
  std::vector<std::string> placed;
  std::vector<std::string> placedTexts;
  std::vector<bool> anonymous;
  std::vector<std::function<void(CallResult)>> results;
  int givenUp = 0;
};

CallOffer usualOffer() {
  CallOffer offer;
  offer.open.number = offer.open.dial = offer.anonymous.number = "0123456";
  offer.anonymous.dial = "#31#0123456";
  offer.anonymous.prefix = "#31#";
  offer.anonymous.hiding = Hiding::kPrefix;
  offer.anonymous.line = offer.open.line = "modem";
  offer.lineTitle = "the modem";
  offer.written = "0123 456";
  return offer;
}

CallOffer refusedOffer(Refusal refusal) {
  CallOffer offer;
  offer.anonymous.refusal = offer.open.refusal = refusal;
  return offer;
}

CallOffer emergencyOffer() {
  CallOffer offer = usualOffer();
  for (auto* plan : {&offer.anonymous, &offer.open}) {
    *plan = CallPlan{};
    plan->number = plan->dial = "112";
    plan->isEmergency = true;
    plan->notices = {Notice::kEmergency};
  }
  offer.written = "112";
  return offer;
}

class CallScreenTest : public testing::Test {
 protected:
  CallScreenTest() {
    QObject::connect(&screen, &CallScreen::closed, [this] { ++closed; });
    QObject::connect(&screen, &CallScreen::settingsWanted,
                     [this](const QString& pane) { panes.push_back(pane.toStdString()); });
  }

  void show(const CallOffer& offer) {
    screen.openLink(QStringLiteral("tel:0123456"));
    service.offers.back()(offer);
    pass();
  }
  // A frame is shown, and the time in which presses do nothing passes.
  void pass() {
    screen.shown();
    now += CallScreen::kDeafTime;
  }
  void finish(Outcome outcome, std::string sentence = {}) {
    service.results.back()({outcome, std::move(sentence)});
  }
  std::string details() const { return screen.details().toStdString(); }
  std::string sentence() const { return screen.sentence().toStdString(); }

  qint64 now = 1000;
  DiallerSettings settings;
  HeldService service;
  CallScreen screen{service, [this] { return settings; }, [this] { return now; }};
  int closed = 0;
  std::vector<std::string> panes;
};

TEST_F(CallScreenTest, ALinkIsShownAndNeverDiallsByItself) {
  EXPECT_TRUE(screen.openLink(QStringLiteral("tel:0123456")));
  EXPECT_EQ(screen.state(), State::Asking);
  EXPECT_FALSE(screen.offersCall());
  EXPECT_THAT(service.texts, ElementsAre("tel:0123456"));
  service.offers.back()(usualOffer());
  screen.shown();
  now += 3600 * 1000;
  EXPECT_EQ(screen.state(), State::Offering);
  EXPECT_EQ(screen.number(), QStringLiteral("0123 456"));
  EXPECT_TRUE(screen.offersAnonymous());
  EXPECT_TRUE(screen.offersCall());
  EXPECT_THAT(service.placed, IsEmpty());
}

TEST_F(CallScreenTest, SaysWhatWillBeDialledThroughWhatAndThatTheNetworkDecides) {
  show(usualOffer());
  EXPECT_THAT(details(), HasSubstr("#31#0123456"));
  EXPECT_THAT(details(), HasSubstr("through the modem"));
  EXPECT_THAT(details(), HasSubstr("Asked to hide your number; the network decides."));
}

TEST_F(CallScreenTest, SaysItsNoticesAndClaimsNothingOfACodeThatMayShow) {
  auto offer = usualOffer();
  offer.anonymous.notices = {Notice::kMayShow, Notice::kPremium};
  show(offer);
  EXPECT_THAT(details(), HasSubstr("On most networks this code shows your number."));
  EXPECT_THAT(details(), HasSubstr("Calls to this number cost extra."));
  EXPECT_THAT(details(), Not(HasSubstr("sked to hide")));
  screen.callAnonymously();
  EXPECT_THAT(sentence(), Not(HasSubstr("sked to hide")));
}

TEST_F(CallScreenTest, PressesInTheFirstHalfSecondDoNothing) {
  screen.openLink(QStringLiteral("tel:0123456"));
  service.offers.back()(usualOffer());
  now += 10'000;
  screen.call();  // nothing was seen yet
  screen.shown();
  now += CallScreen::kDeafTime - 1;
  screen.call();
  screen.callAnonymously();
  screen.cancel();
  EXPECT_THAT(service.placed, IsEmpty());
  EXPECT_EQ(screen.state(), State::Offering);
  screen.shown();  // later frames do not begin it anew
  now += 1;
  screen.callAnonymously();
  EXPECT_THAT(service.placed, ElementsAre("#31#0123456"));
}

TEST_F(CallScreenTest, AnAnonymousCallIsAskedForAndTheScreenGoesOnceTheLineHasIt) {
  show(usualOffer());
  screen.callAnonymously();
  EXPECT_EQ(screen.state(), State::Placing);
  EXPECT_EQ(sentence(), "Calling … asked to hide your number");
  EXPECT_THAT(service.anonymous, ElementsAre(true));
  EXPECT_THAT(service.placedTexts, ElementsAre("tel:0123456"));
  EXPECT_EQ(closed, 0);
  finish(Outcome::kPlaced);
  EXPECT_EQ(closed, 1);
  EXPECT_EQ(screen.state(), State::Closed);
}

TEST_F(CallScreenTest, AnOpenCallSaysNothingOfHiding) {
  show(usualOffer());
  screen.call();
  EXPECT_THAT(service.placed, ElementsAre("0123456"));
  EXPECT_THAT(service.anonymous, ElementsAre(false));
  EXPECT_EQ(sentence(), "Calling …");
}

TEST_F(CallScreenTest, ASecondPressNeverPlacesASecondCall) {
  show(usualOffer());
  screen.callAnonymously();
  pass();
  screen.callAnonymously();
  screen.call();
  screen.tryAgain();
  screen.cancel();
  EXPECT_THAT(service.placed, ElementsAre("#31#0123456"));
  EXPECT_EQ(screen.state(), State::Placing);
  finish(Outcome::kUnknown, "Calls took the number and may still dial.");
  pass();
  EXPECT_EQ(screen.state(), State::Unknown);
  EXPECT_FALSE(screen.canTryAgain());
  screen.callAnonymously();
  screen.tryAgain();
  EXPECT_THAT(service.placed, ElementsAre("#31#0123456"));
  EXPECT_EQ(sentence(), "Calls took the number and may still dial.");
}

TEST_F(CallScreenTest, TriesAgainOnlyWhereTheFailureIsCertain) {
  show(usualOffer());
  screen.callAnonymously();
  finish(Outcome::kFailed, "The modem is off.");
  EXPECT_EQ(screen.state(), State::Failed);
  EXPECT_EQ(sentence(), "The modem is off.");
  EXPECT_TRUE(screen.canTryAgain());
  screen.tryAgain();  // what the finger was about to press was something else
  EXPECT_EQ(service.placed.size(), 1U);
  pass();
  screen.tryAgain();
  screen.tryAgain();
  EXPECT_THAT(service.placed, ElementsAre("#31#0123456", "#31#0123456"));
  EXPECT_THAT(service.anonymous, ElementsAre(true, true));
}

TEST_F(CallScreenTest, WhatHasChangedIsShownInsteadOfDialled) {
  show(usualOffer());
  screen.callAnonymously();
  finish(Outcome::kChanged);
  EXPECT_EQ(screen.state(), State::Asking);
  auto offer = usualOffer();
  offer.anonymous.dial = "*670123456";
  service.offers.back()(offer);
  EXPECT_EQ(screen.state(), State::Offering);
  EXPECT_THAT(sentence(), HasSubstr("Nothing was dialled"));
  EXPECT_THAT(details(), HasSubstr("*670123456"));
  screen.callAnonymously();
  EXPECT_EQ(service.placed.size(), 1U);
  pass();
  screen.callAnonymously();
  EXPECT_THAT(service.placed, ElementsAre("#31#0123456", "*670123456"));
}

TEST_F(CallScreenTest, CancelDialsNothing) {
  show(usualOffer());
  screen.cancel();
  EXPECT_EQ(closed, 1);
  screen.callAnonymously();
  EXPECT_THAT(service.placed, IsEmpty());
}

TEST_F(CallScreenTest, AnEmergencyNumberHasNoAnonymousButton) {
  show(emergencyOffer());
  EXPECT_FALSE(screen.offersAnonymous());
  EXPECT_TRUE(screen.offersCall());
  EXPECT_THAT(details(), HasSubstr("Emergency number: your number will be shown."));
  screen.callAnonymously();
  EXPECT_THAT(service.placed, IsEmpty());
  screen.call();
  EXPECT_THAT(service.placed, ElementsAre("112"));
}

TEST_F(CallScreenTest, ARefusalSaysWhyAndOffersNothing) {
  show(refusedOffer(Refusal::kNotANumber));
  EXPECT_EQ(screen.state(), State::Refused);
  EXPECT_EQ(sentence(), sentenceOf(Refusal::kNotANumber));
  EXPECT_FALSE(screen.offersAnonymous());
  EXPECT_FALSE(screen.offersCall());
  EXPECT_EQ(screen.number(), QString());
  EXPECT_EQ(screen.remedy(), QString());
  screen.call();
  screen.callAnonymously();
  screen.tryAgain();
  EXPECT_THAT(service.placed, IsEmpty());
}

TEST_F(CallScreenTest, WithoutAPrefixTheSettingsAreOfferedAndAnOpenCall) {
  auto offer = usualOffer();
  offer.anonymous = CallPlan{};
  offer.anonymous.refusal = Refusal::kNoPrefix;
  show(offer);
  EXPECT_EQ(screen.state(), State::Offering);
  EXPECT_EQ(sentence(), sentenceOf(Refusal::kNoPrefix));
  EXPECT_EQ(screen.remedy(), QStringLiteral("Choose a Prefix"));
  EXPECT_FALSE(screen.offersAnonymous());
  EXPECT_THAT(details(), HasSubstr("Your number will be shown."));
  screen.takeRemedy();
  EXPECT_THAT(panes, ElementsAre("QDCountryPrefixController"));
}

TEST_F(CallScreenTest, NoSentenceTellsOfOptionsOfACommand) {
  for (int code = 0; code <= static_cast<int>(Refusal::kLastCheck); ++code) {
    CallScreen other(
        service, [this] { return settings; }, [this] { return now; });
    other.openLink(QStringLiteral("1"));
    service.offers.back()(refusedOffer(static_cast<Refusal>(code)));
    EXPECT_EQ(other.state(), State::Refused);
    EXPECT_THAT(other.sentence().toStdString(), Not(IsEmpty()));
    EXPECT_THAT(other.sentence().toStdString(), Not(HasSubstr("--")));
  }
}

TEST_F(CallScreenTest, LooksAgainWhereThereWasNoLine) {
  show(refusedOffer(Refusal::kNoLine));
  screen.takeRemedy();
  EXPECT_EQ(screen.state(), State::Asking);
  service.offers.back()(usualOffer());
  EXPECT_EQ(screen.state(), State::Offering);
  EXPECT_THAT(service.placed, IsEmpty());
}

TEST_F(CallScreenTest, TheQuestionIsTheUsersOwnByTheNumberOfButtons) {
  show(usualOffer());
  EXPECT_EQ(screen.question(), QStringLiteral("How would you like to call?"));
  settings.twoButtonQuestion = "  How\n then? ";
  settings.question = "Sure?";
  screen.readSettings();
  service.offers.back()(usualOffer());
  EXPECT_EQ(screen.question(), QStringLiteral("How then?"));
  settings.call.mode = CallMode::kHold;
  screen.readSettings();
  EXPECT_EQ(screen.question(), QStringLiteral("Sure?"));
  settings.question.clear();
  screen.readSettings();
  EXPECT_EQ(screen.question(), QStringLiteral("Are you sure you want to call?"));
}

TEST_F(CallScreenTest, AnEmergencyNumberIsAskedAboutByTheOneButtonsQuestion) {
  settings.question = "Sure?";
  show(emergencyOffer());
  EXPECT_EQ(screen.question(), QStringLiteral("Sure?"));
}

TEST_F(CallScreenTest, ChangedSettingsShowAtOnceAndOldAnswersCountNoMore) {
  show(usualOffer());
  settings.call = {CallMode::kSwipe, 3};
  screen.readSettings();
  screen.readSettings();
  EXPECT_EQ(screen.mode(), 0);
  EXPECT_EQ(screen.picture(), 3);
  screen.callAnonymously();  // what it would dial is not known any more
  EXPECT_THAT(service.placed, IsEmpty());
  auto late = usualOffer();
  late.anonymous.dial = "*670123456";
  service.offers[2](usualOffer());
  service.offers[1](late);
  pass();
  screen.callAnonymously();
  EXPECT_THAT(service.placed, ElementsAre("#31#0123456"));
}

TEST_F(CallScreenTest, ChangedSettingsLeaveACallOnItsWayAlone) {
  show(usualOffer());
  screen.callAnonymously();
  screen.readSettings();
  EXPECT_EQ(screen.state(), State::Placing);
  EXPECT_EQ(service.offers.size(), 1U);
  finish(Outcome::kPlaced);
  EXPECT_EQ(closed, 1);
}

TEST_F(CallScreenTest, FurtherLinksAreDroppedAndCounted) {
  show(usualOffer());
  EXPECT_EQ(screen.droppedLinks(), QString());
  EXPECT_FALSE(screen.openLink(QStringLiteral("tel:0900666")));
  EXPECT_EQ(screen.droppedLinks(), QStringLiteral("Another phone link was not opened."));
  screen.dropLink();
  EXPECT_EQ(screen.droppedLinks(), QStringLiteral("2 more phone links were not opened."));
  EXPECT_THAT(service.texts, ElementsAre("tel:0123456"));
  screen.cancel();
  screen.openLink(QStringLiteral("tel:1"));
  EXPECT_EQ(screen.droppedLinks(), QString());
}

TEST_F(CallScreenTest, ClosingInTheMidstOfACallGivesItUpAndHearsNoMoreOfIt) {
  show(usualOffer());
  screen.callAnonymously();
  screen.close();
  EXPECT_EQ(service.givenUp, 1);
  EXPECT_EQ(closed, 1);
  finish(Outcome::kFailed, "no");
  EXPECT_EQ(screen.state(), State::Closed);
}

TEST_F(CallScreenTest, AnswersAfterItsEndAreHarmless) {
  {
    CallScreen other(
        service, [this] { return settings; }, [this] { return now; });
    other.openLink(QStringLiteral("1"));
  }
  service.offers.back()(usualOffer());
  EXPECT_THAT(service.placed, IsEmpty());
}

TEST_F(CallScreenTest, ANumberTypedAndPressedNeedsNoSecondPress) {
  screen.openPressed(QStringLiteral("0123456"), true);
  service.offers.back()(usualOffer());
  EXPECT_EQ(screen.state(), State::Placing);
  EXPECT_THAT(service.placed, ElementsAre("#31#0123456"));
  finish(Outcome::kHandedOver, "Handed to Plasma Dialer: press Call there.");
  EXPECT_EQ(screen.state(), State::Told);
  EXPECT_EQ(sentence(), "Handed to Plasma Dialer: press Call there.");
}

TEST_F(CallScreenTest, ATypedNumberWithSomethingToBeToldIsAskedAbout) {
  screen.openPressed(QStringLiteral("112"), true);
  service.offers.back()(emergencyOffer());
  EXPECT_EQ(screen.state(), State::Offering);
  auto offer = usualOffer();
  offer.open.notices = {Notice::kPremium};
  CallScreen other(
      service, [this] { return settings; }, [this] { return now; });
  other.openPressed(QStringLiteral("0900"), false);
  service.offers.back()(offer);
  EXPECT_EQ(other.state(), State::Offering);
  EXPECT_THAT(service.placed, IsEmpty());
}

TEST_F(CallScreenTest, ATypedNumberIsNeverCalledOpenlyInPlaceOfAnonymously) {
  auto offer = usualOffer();
  offer.anonymous = CallPlan{};
  offer.anonymous.refusal = Refusal::kBadPrefix;
  screen.openPressed(QStringLiteral("0123456"), true);
  service.offers.back()(offer);
  EXPECT_EQ(screen.state(), State::Offering);
  EXPECT_THAT(service.placed, IsEmpty());
}

TEST_F(CallScreenTest, NamesTheCountryOfANumberOfAnother) {
  auto offer = usualOffer();
  show(offer);
  EXPECT_EQ(screen.country(), QString());
  offer.country = "FR";
  CallScreen other(
      service, [this] { return settings; }, [this] { return now; });
  other.openLink(QStringLiteral("tel:+33"));
  service.offers.back()(offer);
  EXPECT_EQ(other.country(), QStringLiteral("France"));
}

TEST_F(CallScreenTest, AnEndlessLinkIsCutWhereNoNumberGoesOn) {
  screen.openLink(QString(1 << 20, u'1'));
  EXPECT_EQ(service.texts.back().size(), 513U);
}

}  // namespace
