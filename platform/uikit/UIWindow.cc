#include "platform/uikit/UIWindow.h"

constexpr ClassOf<UIWindow> UIWindow::classObject{"UIWindow"};

std::shared_ptr<UIWindow> UIWindow::window() const {
  // Null once the window is being destroyed.
  const auto self = std::const_pointer_cast<NSObject>(weak_from_this().lock());
  return std::static_pointer_cast<UIWindow>(self);
}

void UIWindow::setRootViewController(const std::shared_ptr<UIViewController>& controller) {
  if (root_) {
    root_->view()->removeFromSuperview();
  }
  root_ = controller;
  if (root_) {
    addSubview(root_->view());
  }
}
