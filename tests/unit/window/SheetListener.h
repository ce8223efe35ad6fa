#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "platform/foundation/Subclass.h"
#include "platform/messageui/MFMailComposeViewController.h"

/// Keeps how mail composers ended.
class SheetListener : public Subclass<SheetListener, UIViewController>,
                      public MFMailComposeViewControllerDelegate {
 public:
  static const ClassOf<SheetListener> classObject;

  using End = std::pair<MFMailComposeResult, std::optional<MFMailComposeErrorCode>>;

  void mailComposeControllerDidFinishWithResultError(
      MFMailComposeViewController& composer, MFMailComposeResult result,
      std::optional<MFMailComposeErrorCode> error) override {
    ends.emplace_back(result, error);
    composer.dismissViewControllerAnimatedCompletion(true, {});
  }

  std::vector<End> ends;
};

inline constexpr ClassOf<SheetListener> SheetListener::classObject{"SheetListener"};
