#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"

/// A tap anywhere in the view that it is added to. It holds its target weakly. Main thread.
class PLATFORM_API UITapGestureRecognizer : public Subclass<UITapGestureRecognizer, NSObject> {
 public:
  static const ClassOf<UITapGestureRecognizer> classObject;

  bool initWithTargetAction(const std::shared_ptr<NSObject>& target, std::string_view action);

  /// Whether a recognised tap is kept from the views under it. True unless set.
  bool cancelsTouchesInView() const { return cancelsTouchesInView_; }
  void setCancelsTouchesInView(bool cancels) { cancelsTouchesInView_ = cancels; }

  /// For the host: the user has tapped.
  void recognize();

 private:
  std::weak_ptr<NSObject> target_;
  std::string action_;
  bool cancelsTouchesInView_ = true;
};
