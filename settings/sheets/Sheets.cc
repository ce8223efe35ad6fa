#include "settings/sheets/Sheets.h"

#include "platform/foundation/MainQueue.h"
#include "platform/social/SLComposeViewController.h"
#include "settings/messages/complain.h"

void Sheets::cancel() {
  if (alert()) {
    closeAlert();
  } else if (mail()) {
    mail()->cancel();
  } else if (compose()) {
    compose()->cancel();
  }
}

void Sheets::closeAlert() {
  if (alerts_.empty()) {
    return;
  }
  alerts_.front().release()->deleteLater();
  alerts_.pop_front();
  emit changed();
}

void Sheets::present(UIViewController& /*presenter*/,
                     const std::shared_ptr<UIViewController>& sheet) {
  if (auto compose = cast<SLComposeViewController>(sheet)) {
    compose_ = std::make_unique<ComposeModel>(std::move(compose));
    emit changed();
    return;
  }
  if (auto mail = cast<MFMailComposeViewController>(sheet)) {
    mail_ = std::make_unique<MailModel>(std::move(mail));
    emit changed();
    return;
  }
  complain("a sheet of the class " + std::string(sheet->classDescription().name) +
           " cannot be shown");
  MainQueue::shared().async([sheet] { sheet->dismissViewControllerAnimatedCompletion(false, {}); });
}

void Sheets::dismiss(UIViewController& sheet) {
  // A sheet's own button may still be on the stack.
  if (compose_ && &compose_->sheet() == &sheet) {
    compose_.release()->deleteLater();
    emit changed();
  } else if (mail_ && &mail_->sheet() == &sheet) {
    mail_.release()->deleteLater();
    emit changed();
  }
}

void Sheets::show(const std::shared_ptr<UIAlertView>& alert) {
  alerts_.push_back(std::make_unique<AlertModel>(alert));
  emit changed();
}
