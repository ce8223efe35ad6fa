#include "platform/uikit/UIScrollView.h"

constexpr ClassOf<UIScrollView> UIScrollView::classObject{"UIScrollView"};

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
