#pragma once

#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/foundation/NSObject.h"

/// A message above everything, with one button that closes it. Main thread.
class PLATFORM_API UIAlertView : public NSObject {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }

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
