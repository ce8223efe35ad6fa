#include "platform/uikit/UIView.h"

#include <algorithm>
#include <utility>

#include "platform/uikit/UITapGestureRecognizer.h"
#include "platform/uikit/UITextField.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/metrics.h"

constexpr ClassOf<UIView> UIView::classObject{"UIView"};

namespace {

UIViewObserver*& currentObserver() {
  static UIViewObserver* observer = nullptr;
  return observer;
}

}  // namespace

UIView::~UIView() {
  for (const auto& view : subviews_) {
    // Whoever else keeps it has it without a superview now.
    view->superview_.reset();
    view->didMoveToSuperview();
    view->tellOfWindow();
  }
  if (auto* observer = currentObserver()) {
    observer->viewDestroyed(*this);
  }
}

bool UIView::init() {
  return initWithFrame(CGRectZero);
}

bool UIView::initWithFrame(CGRect frame) {
  if (!NSObject::init()) {
    return false;
  }
  frame_ = frame;
  return true;
}

void UIView::setFrame(CGRect frame) {
  if (frame == frame_) {
    return;
  }
  const bool resized = frame.size != frame_.size;
  frame_ = frame;
  if (resized) {
    needsLayout_ = true;
  }
  setNeedsDisplay();
}

void UIView::addSubview(const std::shared_ptr<UIView>& view) {
  view->leaveSuperview();
  view->superview_ = cast<UIView>(shared_from_this());
  subviews_.push_back(view);
  setNeedsLayout();
  view->didMoveToSuperview();
  view->tellOfWindow();
}

void UIView::removeFromSuperview() {
  if (superview_.expired()) {
    return;
  }
  const auto keptAlive = shared_from_this();
  leaveSuperview();
  didMoveToSuperview();
  tellOfWindow();
}

void UIView::leaveSuperview() {
  const auto superview = superview_.lock();
  if (!superview) {
    return;
  }
  superview_.reset();
  const auto keptAlive = shared_from_this();
  std::erase_if(superview->subviews_, [this](const auto& view) { return view.get() == this; });
  superview->setNeedsLayout();
}

std::shared_ptr<UIWindow> UIView::window() const {
  const auto parent = superview();
  return parent ? parent->window() : nullptr;
}

void UIView::didMoveToSuperview() {}

void UIView::didMoveToWindow() {}

void UIView::tellOfWindow() {
  const std::weak_ptr<UIWindow> now = window();
  // By owner: a window that is gone is another one than none.
  if (!now.owner_before(toldWindow_) && !toldWindow_.owner_before(now)) {
    return;
  }
  toldWindow_ = now;
  didMoveToWindow();
  // A copy: whoever is told may change the list.
  const auto children = subviews_;
  for (const auto& view : children) {
    view->tellOfWindow();
  }
}

CALayer& UIView::layer() {
  if (!layer_) {
    layer_ = std::make_unique<CALayer>(*this);
  }
  return *layer_;
}

void UIView::displayLayer(CALayer& /*layer*/) {}

void UIView::layerChanged(CALayer& /*layer*/) {
  setNeedsDisplay();
}

CGSize UIView::intrinsicContentSize() const {
  return {UIViewNoIntrinsicMetric, UIViewNoIntrinsicMetric};
}

void UIView::invalidateIntrinsicContentSize() {
  setNeedsLayout();
  if (const auto parent = superview()) {
    parent->setNeedsLayout();
  }
}

void UIView::setHidden(bool hidden) {
  if (hidden != hidden_) {
    hidden_ = hidden;
    setNeedsDisplay();
  }
}

void UIView::setUserInteractionEnabled(bool enabled) {
  if (enabled != userInteractionEnabled_) {
    userInteractionEnabled_ = enabled;
    setNeedsDisplay();
  }
}

void UIView::setBackgroundColor(std::optional<UIColor> color) {
  backgroundColor_ = color;
  setNeedsDisplay();
}

UIColor UIView::tintColor() const {
  if (tintColor_) {
    return *tintColor_;
  }
  const auto parent = superview();
  return parent ? parent->tintColor() : metrics::kTintColor;
}

void UIView::setTintColor(std::optional<UIColor> color) {
  tintColor_ = color;
  setNeedsDisplay();
}

void UIView::setCornerRadius(CGFloat radius) {
  cornerRadius_ = radius;
  setNeedsDisplay();
}

void UIView::setAccessibilityLabel(std::string label) {
  accessibilityLabel_ = std::move(label);
  setNeedsDisplay();
}

void UIView::setAccessibilitySelected(bool selected) {
  accessibilitySelected_ = selected;
  setNeedsDisplay();
}

void UIView::addGestureRecognizer(const std::shared_ptr<UITapGestureRecognizer>& recognizer) {
  gestureRecognizers_.push_back(recognizer);
  setNeedsDisplay();
}

void UIView::setNeedsLayout() {
  needsLayout_ = true;
  setNeedsDisplay();
}

void UIView::layoutIfNeeded() {
  if (needsLayout_) {
    needsLayout_ = false;
    layoutSubviews();
  }
  // A copy: laying out a subview may change the list.
  const auto children = subviews_;
  for (const auto& view : children) {
    view->layoutIfNeeded();
  }
}

void UIView::layoutSubviews() {}

bool UIView::endEditing(bool force) {
  const auto field = UITextField::firstResponder();
  for (std::shared_ptr<UIView> view = field; view; view = view->superview()) {
    if (view.get() == this) {
      return field->resignFirstResponder() || force;
    }
  }
  return true;
}

void UIView::setObserver(UIViewObserver* observer) {
  currentObserver() = observer;
}

void UIView::setNeedsDisplay() {
  if (auto* observer = currentObserver()) {
    observer->viewChanged(*this);
  }
}
