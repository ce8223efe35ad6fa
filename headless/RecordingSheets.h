#pragma once

#include <memory>
#include <variant>
#include <vector>

#include "headless/Recorder.h"
#include "platform/messageui/MFMailComposeViewController.h"
#include "platform/services.h"
#include "platform/social/SLComposeViewController.h"
#include "platform/uikit/UIAlertView.h"

/// Records what is presented and keeps it, until somebody answers in the user's place.
class RecordingSheets : public SheetPresenter {
 public:
  using Sheet =
      std::variant<std::shared_ptr<SLComposeViewController>,
                   std::shared_ptr<MFMailComposeViewController>, std::shared_ptr<UIAlertView>>;

  explicit RecordingSheets(std::shared_ptr<Recorder> recorder);

  void present(UIViewController& presenter,
               const std::shared_ptr<UIViewController>& sheet) override;
  void dismiss(UIViewController& sheet) override;
  void show(const std::shared_ptr<UIAlertView>& alert) override;

  /// The topmost sheet or alert; null when nothing is shown.
  const Sheet* top() const { return shown_.empty() ? nullptr : &shown_.back(); }
  /// The user closes the alert on top.
  void closeAlert();

 private:
  std::shared_ptr<Recorder> recorder_;
  std::vector<Sheet> shown_;
};
