#include "dialler/model/CallScreen.h"

#include <QPointer>
#include <utility>

#include "dialler/model/CallTexts.h"

namespace {

constexpr qsizetype kLongestLink = 512;
constexpr qsizetype kLongestQuestion = 200;

QString questionOr(const std::string& own, const QString& usual) {
  const QString text = QString::fromStdString(own).simplified();
  return text.isEmpty() ? usual : text.left(kLongestQuestion);
}

}  // namespace

CallScreen::CallScreen(CallService& service, Settings settings, Clock clock)
    : service_(service),
      readSettings_(std::move(settings)),
      clock_(std::move(clock)),
      settings_(readSettings_()) {}

bool CallScreen::openLink(const QString& text) {
  if (isOpen()) {
    dropLink();
    return false;
  }
  start(text, Choice::None);
  return true;
}

bool CallScreen::openPressed(const QString& number, bool isAnonymous) {
  if (isOpen()) {
    return false;
  }
  start(number, isAnonymous ? Choice::Anonymous : Choice::Open);
  return true;
}

void CallScreen::start(const QString& text, Choice pressed) {
  // One sign more than any number has: what is longer is none, however it goes on.
  text_ = text.left(kLongestLink + 1);
  dropped_ = 0;
  remark_.clear();
  pressed_ = pressed;
  offer_.reset();
  settings_ = readSettings_();
  ask();
}

void CallScreen::dropLink() {
  if (isOpen()) {
    ++dropped_;
    emit changed();
  }
}

void CallScreen::readSettings() {
  settings_ = readSettings_();
  const bool isUndecided =
      state_ == State::Asking || state_ == State::Offering || state_ == State::Refused;
  if (isUndecided) {
    ask();
  } else {
    emit changed();
  }
}

void CallScreen::ask() {
  const unsigned question = ++question_;
  // What was offered stays in sight meanwhile, but cannot be had any more.
  become(State::Asking);
  service_.offer(text_.toStdString(), [self = QPointer(this), question](const CallOffer& offer) {
    if (self && self->question_ == question) {
      self->take(offer);
    }
  });
}

void CallScreen::take(const CallOffer& offer) {
  offer_ = offer;
  if (!offersAnonymous() && !offersCall() && offer.anonymous.refusal) {
    const bool isOpenTheCause = offer.open.refusal && pressed_ == Choice::Open;
    become(State::Refused,
           call_texts::refusal(isOpenTheCause ? *offer.open.refusal : *offer.anonymous.refusal));
    return;
  }
  become(State::Offering,
         offer.anonymous.refusal ? call_texts::refusal(*offer.anonymous.refusal) : remark_);
  const Choice pressed = std::exchange(pressed_, Choice::None);
  if (pressed != Choice::None && !plan(pressed).refusal && plan(pressed).notices.empty()) {
    place(pressed);
  }
}

void CallScreen::shown() {
  if (!shownAt_) {
    shownAt_ = clock_();
  }
}

bool CallScreen::hears() const {
  return shownAt_ && clock_() - *shownAt_ >= kDeafTime;
}

void CallScreen::callAnonymously() {
  press(Choice::Anonymous);
}

void CallScreen::call() {
  press(Choice::Open);
}

void CallScreen::press(Choice choice) {
  const bool isOffered = choice == Choice::Anonymous ? offersAnonymous() : offersCall();
  if (state_ == State::Offering && isOffered && hears()) {
    place(choice);
  }
}

void CallScreen::tryAgain() {
  if (state_ == State::Failed && hears()) {
    place(pressed_);
  }
}

void CallScreen::place(Choice choice) {
  pressed_ = choice;
  remark_.clear();
  const CallPlan agreed = plan(choice);
  const unsigned question = ++question_;
  become(State::Placing, call_texts::placing(agreed));
  service_.place(text_.toStdString(), choice == Choice::Anonymous, agreed,
                 [self = QPointer(this), question](const CallResult& result) {
                   if (self && self->question_ == question) {
                     self->finish(result);
                   }
                 });
}

void CallScreen::finish(const CallResult& result) {
  const QString sentence = call_texts::outcome(result, plan(pressed_));
  switch (result.outcome) {
    case CallResult::Outcome::kPlaced:
    case CallResult::Outcome::kGivenUp:
      close();
      return;
    case CallResult::Outcome::kHandedOver:
      become(State::Told, sentence);
      return;
    case CallResult::Outcome::kFailed:
      become(State::Failed, sentence);
      return;
    case CallResult::Outcome::kUnknown:
      become(State::Unknown, sentence);
      return;
    case CallResult::Outcome::kChanged:
      break;
  }
  pressed_ = Choice::None;
  remark_ = sentence;
  ask();
}

void CallScreen::become(State state, const QString& sentence) {
  state_ = state;
  sentence_ = sentence;
  shownAt_.reset();
  emit changed();
}

void CallScreen::cancel() {
  if (state_ != State::Placing && hears()) {
    close();
  }
}

void CallScreen::close() {
  if (!isOpen()) {
    return;
  }
  if (state_ == State::Placing) {
    service_.giveUp();
  }
  ++question_;
  offer_.reset();
  text_.clear();
  become(State::Closed);
  emit closed();
}

const CallPlan& CallScreen::plan(Choice choice) const {
  return choice == Choice::Anonymous ? offer_->anonymous : offer_->open;
}

QString CallScreen::number() const {
  return offer_ ? QString::fromStdString(offer_->written) : QString();
}

QString CallScreen::country() const {
  return offer_ ? call_texts::country(*offer_) : QString();
}

QString CallScreen::details() const {
  return offer_ && (state_ == State::Offering || state_ == State::Asking)
             ? call_texts::details(*offer_)
             : QString();
}

QString CallScreen::question() const {
  const bool hasTwo = settings_.call.mode == CallMode::kAlways && offersAnonymous();
  return hasTwo ? questionOr(settings_.twoButtonQuestion, tr("How would you like to call?"))
                : questionOr(settings_.question, tr("Are you sure you want to call?"));
}

QString CallScreen::droppedLinks() const {
  if (dropped_ == 0) {
    return {};
  }
  return dropped_ == 1 ? tr("Another phone link was not opened.")
                       : tr("%1 more phone links were not opened.").arg(dropped_);
}

bool CallScreen::offersAnonymous() const {
  return offer_ && !offer_->anonymous.refusal && !offer_->anonymous.isEmergency;
}

bool CallScreen::offersCall() const {
  return offer_ && !offer_->open.refusal;
}

std::optional<Refusal> CallScreen::refusal() const {
  return offer_ ? offer_->anonymous.refusal : std::nullopt;
}

CallScreen::Remedy CallScreen::remedyFor() const {
  const bool isRefused = state_ == State::Refused || state_ == State::Offering;
  const auto why = isRefused ? refusal() : std::nullopt;
  if (!why) {
    return Remedy::None;
  }
  switch (*why) {
    case Refusal::kNoPrefix:
    case Refusal::kBadPrefix:
    case Refusal::kNeedsRegion:
      return Remedy::ChoosePrefix;
    case Refusal::kNoSettings:
      return Remedy::OpenSettings;
    case Refusal::kInCall:
    case Refusal::kNoLine:
      return Remedy::LookAgain;
    default:
      return Remedy::None;
  }
}

QString CallScreen::remedy() const {
  switch (remedyFor()) {
    case Remedy::None:
      break;
    case Remedy::ChoosePrefix:
      return refusal() == Refusal::kNeedsRegion ? tr("Choose a Country") : tr("Choose a Prefix");
    case Remedy::OpenSettings:
      return tr("Open Settings");
    case Remedy::LookAgain:
      return tr("Look Again");
  }
  return {};
}

void CallScreen::takeRemedy() {
  if (!hears()) {
    return;
  }
  switch (remedyFor()) {
    case Remedy::None:
      break;
    case Remedy::ChoosePrefix:
      emit settingsWanted(QStringLiteral("QDCountryPrefixController"));
      break;
    case Remedy::OpenSettings:
      emit settingsWanted(QString());
      break;
    case Remedy::LookAgain:
      ask();
      break;
  }
}
