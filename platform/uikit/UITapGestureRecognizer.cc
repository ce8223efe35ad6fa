#include "platform/uikit/UITapGestureRecognizer.h"

constexpr ClassOf<UITapGestureRecognizer> UITapGestureRecognizer::classObject{
    "UITapGestureRecognizer"};

bool UITapGestureRecognizer::initWithTargetAction(const std::shared_ptr<NSObject>& target,
                                                  std::string_view action) {
  if (!NSObject::init()) {
    return false;
  }
  target_ = target;
  action_ = action;
  return true;
}

void UITapGestureRecognizer::recognize() {
  if (const auto target = target_.lock()) {
    target->performAction(action_, this);
  }
}
