#include "headless/RecordingSheets.h"

#include <algorithm>
#include <utility>

#include "platform/uikit/UINavigationController.h"

namespace {

Presenter kindOf(const UIViewController& presenter) {
  if (!dynamic_cast<const UINavigationController*>(&presenter)) {
    return Presenter::kPane;
  }
  return presenter.navigationController() ? Presenter::kInner : Presenter::kOuter;
}

}  // namespace

RecordingSheets::RecordingSheets(std::shared_ptr<Recorder> recorder)
    : recorder_(std::move(recorder)) {}

void RecordingSheets::present(UIViewController& presenter,
                              const std::shared_ptr<UIViewController>& sheet) {
  if (const auto compose = cast<SLComposeViewController>(sheet)) {
    recorder_->record(PresentComposeEvent{compose->serviceType(), compose->text(),
                                          compose->images().size(), kindOf(presenter)});
    shown_.emplace_back(compose);
  } else if (const auto mail = cast<MFMailComposeViewController>(sheet)) {
    recorder_->record(PresentMailEvent{mail->message(), kindOf(presenter)});
    shown_.emplace_back(mail);
  }
}

void RecordingSheets::dismiss(UIViewController& sheet) {
  const auto found = std::ranges::find_if(shown_, [&](const Sheet& shown) {
    return std::visit(
        [&](const auto& object) {
          return static_cast<const NSObject*>(object.get()) == static_cast<NSObject*>(&sheet);
        },
        shown);
  });
  if (found == shown_.end()) {
    return;
  }
  const bool isMail = std::holds_alternative<std::shared_ptr<MFMailComposeViewController>>(*found);
  shown_.erase(found);
  recorder_->record(DismissEvent{isMail ? SheetKind::kMail : SheetKind::kCompose});
}

void RecordingSheets::show(const std::shared_ptr<UIAlertView>& alert) {
  recorder_->record(AlertEvent{alert->title(), alert->message(), alert->cancelButtonTitle()});
  shown_.emplace_back(alert);
}

void RecordingSheets::closeAlert() {
  if (!shown_.empty() && std::holds_alternative<std::shared_ptr<UIAlertView>>(shown_.back())) {
    shown_.pop_back();
  }
}
