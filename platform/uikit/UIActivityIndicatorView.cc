#include "platform/uikit/UIActivityIndicatorView.h"

#include "platform/uikit/metrics.h"

constexpr ClassOf<UIActivityIndicatorView> UIActivityIndicatorView::classObject{
    "UIActivityIndicatorView"};

bool UIActivityIndicatorView::initWithFrame(CGRect frame) {
  if (!UIView::initWithFrame(
          {frame.origin, {metrics::kActivityIndicatorSize, metrics::kActivityIndicatorSize}})) {
    return false;
  }
  setHidden(true);
  return true;
}

void UIActivityIndicatorView::startAnimating() {
  setAnimating(true);
}

void UIActivityIndicatorView::stopAnimating() {
  setAnimating(false);
}

void UIActivityIndicatorView::setAnimating(bool animating) {
  if (animating != animating_) {
    animating_ = animating;
    setHidden(!animating);
    setNeedsDisplay();
  }
}
