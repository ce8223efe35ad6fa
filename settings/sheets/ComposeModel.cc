#include "settings/sheets/ComposeModel.h"

#include <QUrl>
#include <string>
#include <utility>

#include "platform/makers/addresses.h"
#include "platform/social/SLComposeViewController.h"
#include "platform/uikit/UIApplication.h"

ComposeModel::ComposeModel(std::shared_ptr<SLComposeViewController> sheet)
    : sheet_(std::move(sheet)) {}

QString ComposeModel::service() const {
  return sheet_->serviceType() == SLServiceTypeTwitter ? QStringLiteral("Twitter") : QString();
}

QString ComposeModel::text() const {
  return QString::fromStdString(sheet_->text());
}

void ComposeModel::edit(const QString& text) {
  sheet_->setInitialText(text.toStdString());
}

void ComposeModel::post() {
  const auto sheet = sheet_;
  // The service's own form takes the text, and the user's account with it.
  const QByteArray text = QUrl::toPercentEncoding(QString::fromStdString(sheet->text()));
  UIApplication::sharedApplication().openURL("https://" + std::string(addresses::kTwitterHost) +
                                             "/intent/tweet?text=" + text.toStdString());
  sheet->finish();
}

void ComposeModel::cancel() {
  const auto sheet = sheet_;
  sheet->finish();
}
