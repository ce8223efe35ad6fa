#pragma once

#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"

/// A message above everything, with one button that closes it. Main thread.
class PLATFORM_API UIAlertView : public Subclass<UIAlertView, NSObject> {
 public:
  static const ClassOf<UIAlertView> classObject;

  bool initWithTitleMessageCancelButtonTitle(std::string title, std::string message,
                                             std::string cancelButtonTitle);

  const std::string& title() const { return title_; }
  const std::string& message() const { return message_; }
  const std::string& cancelButtonTitle() const { return cancelButtonTitle_; }

  /// Shows the alert; the host owns it until it is closed.
  void show();

 private:
  std::string title_;
  std::string message_;
  std::string cancelButtonTitle_;
};
