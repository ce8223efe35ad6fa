#include "settings/ComposeModel.h"

#include <utility>

#include "platform/social/SLComposeViewController.h"

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
  sheet->finish(SLComposeViewControllerResult::kDone);
}

void ComposeModel::cancel() {
  const auto sheet = sheet_;
  sheet->finish(SLComposeViewControllerResult::kCancelled);
}
