#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIView.h"

/// What the user has done: let go of the control after pressing it, chosen another value, ended an
/// edit of its text.
enum class UIControlEvent { kTouchUpInside, kValueChanged, kEditingDidEnd };

/// A view that the user operates. Targets are held weakly. Main thread.
class PLATFORM_API UIControl : public Subclass<UIControl, UIView> {
 public:
  static const ClassOf<UIControl> classObject;

  bool isEnabled() const { return enabled_; }
  void setEnabled(bool enabled);

  /// `action` is a selector of the target; one that nobody answers for does nothing.
  void addTargetActionForControlEvents(const std::shared_ptr<NSObject>& target,
                                       std::string_view action, UIControlEvent event);

  /// Calls the actions registered for the event, in the order in which they were added, with the
  /// control as sender. Nothing while the control is disabled.
  void sendActionsForControlEvents(UIControlEvent event);

 private:
  struct TargetAction {
    std::weak_ptr<NSObject> target;
    std::string action;
    UIControlEvent event;
  };

  std::vector<TargetAction> targets_;
  bool enabled_ = true;
};
