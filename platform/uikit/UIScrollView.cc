#include "platform/uikit/UIScrollView.h"

constexpr ClassDescription UIScrollView::classObject{
    "UIScrollView", &UIView::classObject, &allocObject<UIScrollView>, {}};

void UIScrollView::setContentSize(CGSize size) {
  if (size != contentSize_) {
    contentSize_ = size;
    setNeedsDisplay();
  }
}

void UIScrollView::setScrollEnabled(bool enabled) {
  if (enabled != scrollEnabled_) {
    scrollEnabled_ = enabled;
    setNeedsDisplay();
  }
}
