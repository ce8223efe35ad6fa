#include "platform/uikit/UIBarButtonItem.h"

constexpr ClassOf<UIBarButtonItem> UIBarButtonItem::classObject{"UIBarButtonItem"};

bool UIBarButtonItem::initWithImageStyleTargetAction(const std::shared_ptr<UIImage>& image,
                                                     UIBarButtonItemStyle style,
                                                     const std::shared_ptr<NSObject>& target,
                                                     std::string_view action) {
  if (!NSObject::init()) {
    return false;
  }
  image_ = image;
  style_ = style;
  target_ = target;
  action_ = action;
  return true;
}

void UIBarButtonItem::press() {
  const auto target = target_.lock();
  if (target && enabled_) {
    target->performAction(action_, this);
  }
}
