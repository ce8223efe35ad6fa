#include "dialler/model/CallTexts.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>
#include <algorithm>

namespace {

// Left-to-right isolate, and its end.
constexpr QChar kIsolate(0x2066);
constexpr QChar kEndOfIsolate(0x2069);

QString translated(const char* text) {
  return QCoreApplication::translate("CallTexts", text);
}

QString fromView(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool has(const CallPlan& plan, Notice notice) {
  return std::ranges::find(plan.notices, notice) != plan.notices.end();
}

bool writesOnly(const CallPlan& plan) {
  return plan.line == "print";
}

QString dialled(const CallPlan& plan, const QString& line) {
  const QString text = call_texts::isolated(QString::fromStdString(plan.dial));
  return writesOnly(plan) ? text : translated("%1 through %2").arg(text, line);
}

// What the network is asked for. It decides, and no text says more.
QString wish(const CallPlan& plan) {
  if (has(plan, Notice::kMayShow)) {
    return fromView(sentenceOf(Notice::kMayShow));
  }
  return plan.hiding == Hiding::kNo ? translated("Your number will be shown.")
                                    : translated("Asked to hide your number; the network decides.");
}

}  // namespace

namespace call_texts {

QString isolated(const QString& number) {
  return kIsolate + number + kEndOfIsolate;
}

QString details(const CallOffer& offer) {
  const bool isAnonymous = !offer.anonymous.refusal;
  const CallPlan& plan = isAnonymous ? offer.anonymous : offer.open;
  if (plan.refusal) {
    return {};
  }
  const QString line = QString::fromStdString(offer.lineTitle);
  QStringList lines;
  if (plan.isEmergency) {
    lines << translated("Emergency number: your number will be shown.") << dialled(plan, line);
  } else if (isAnonymous) {
    lines << translated("Call Anonymously: %1. %2").arg(dialled(plan, line), wish(plan));
  } else {
    lines << translated("Call: %1. %2").arg(dialled(plan, line), wish(plan));
  }
  for (const auto notice : plan.notices) {
    if (notice != Notice::kEmergency && notice != Notice::kMayShow) {
      lines << fromView(sentenceOf(notice));
    }
  }
  if (writesOnly(plan)) {
    lines << translated("No phone here: this is what would be dialled.");
  }
  return lines.join(u'\n');
}

QString country(const CallOffer& offer) {
  const auto territory = QLocale::codeToTerritory(QString::fromStdString(offer.country));
  return territory == QLocale::AnyTerritory ? QString() : QLocale::territoryToString(territory);
}

QString refusal(Refusal refusal) {
  if (refusal == Refusal::kNeedsRegion) {
    return translated(
        "How this number is dialled depends on the country that you are in. Choose yours, or dial "
        "the number as people there do.");
  }
  return fromView(sentenceOf(refusal));
}

QString placing(const CallPlan& plan) {
  if (plan.isEmergency || plan.hiding == Hiding::kNo) {
    return translated("Calling …");
  }
  return has(plan, Notice::kMayShow) ? translated("Calling … %1").arg(wish(plan))
                                     : translated("Calling … asked to hide your number");
}

QString outcome(const CallResult& result, const CallPlan& plan) {
  const QString sentence = QString::fromStdString(result.sentence);
  switch (result.outcome) {
    case CallResult::Outcome::kPlaced:
    case CallResult::Outcome::kGivenUp:
      return {};
    case CallResult::Outcome::kHandedOver:
      return writesOnly(plan) ? translated("No phone here: %1 is what would be dialled.")
                                    .arg(isolated(QString::fromStdString(plan.dial)))
                              : sentence;
    case CallResult::Outcome::kFailed:
      return sentence.isEmpty() ? translated("The call failed.") : sentence;
    case CallResult::Outcome::kUnknown:
      return sentence.isEmpty()
                 ? translated("Nothing has answered. The number may still be dialled.")
                 : sentence;
    case CallResult::Outcome::kChanged:
      break;
  }
  return translated("What would be dialled has changed. Nothing was dialled: look again.");
}

}  // namespace call_texts
