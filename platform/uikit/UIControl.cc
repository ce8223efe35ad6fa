#include "platform/uikit/UIControl.h"

constexpr ClassOf<UIControl> UIControl::classObject{"UIControl"};

void UIControl::setEnabled(bool enabled) {
  enabled_ = enabled;
  setNeedsDisplay();
}

void UIControl::addTargetActionForControlEvents(const std::shared_ptr<NSObject>& target,
                                                std::string_view action, UIControlEvent event) {
  targets_.push_back({target, std::string(action), event});
}

void UIControl::sendActionsForControlEvents(UIControlEvent event) {
  if (!enabled_) {
    return;
  }
  const auto keptAlive = shared_from_this();
  const auto targets = targets_;
  for (const auto& entry : targets) {
    const auto target = entry.target.lock();
    if (target && entry.event == event) {
      target->performAction(entry.action, this);
    }
  }
}
