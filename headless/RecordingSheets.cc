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
  }
}

void RecordingSheets::dismiss(UIViewController& sheet) {
  const auto erased = std::erase_if(shown_, [&](const Sheet& shown) {
    const auto* compose = std::get_if<std::shared_ptr<SLComposeViewController>>(&shown);
    return compose && compose->get() == &sheet;
  });
  if (erased > 0) {
    recorder_->record(DismissEvent{SheetKind::kCompose});
  }
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
