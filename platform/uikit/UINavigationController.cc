#include "platform/uikit/UINavigationController.h"

constexpr ClassOf<UINavigationController> UINavigationController::classObject{
    "UINavigationController"};

UINavigationControllerObserver::~UINavigationControllerObserver() = default;

std::shared_ptr<UIViewController> UINavigationController::topViewController() const {
  return controllers_.empty() ? nullptr : controllers_.back();
}

void UINavigationController::pushViewControllerAnimated(
    const std::shared_ptr<UIViewController>& controller, bool animated) {
  if (const auto covered = topViewController()) {
    covered->viewWillDisappear(animated);
  }
  controllers_.push_back(controller);
  setParentViewController(*controller, cast<UIViewController>(shared_from_this()));
  controller->view();
  controller->viewWillAppear(animated);
  show(*controller);
  if (observer_) {
    observer_->didPush(*controller, animated);
  }
}

std::shared_ptr<UIViewController> UINavigationController::popViewControllerAnimated(bool animated) {
  auto leaving = topViewController();
  if (!leaving) {
    return nullptr;
  }
  leaving->viewWillDisappear(animated);
  controllers_.pop_back();
  setParentViewController(*leaving, nullptr);
  if (const auto top = topViewController()) {
    top->viewWillAppear(animated);
    show(*top);
  } else {
    leaving->view()->removeFromSuperview();
  }
  if (observer_) {
    observer_->didPop(*leaving, animated);
  }
  return leaving;
}

void UINavigationController::show(UIViewController& controller) {
  // A copy: removing a view changes the list.
  const auto covered = view()->subviews();
  view()->addSubview(controller.view());
  for (const auto& page : covered) {
    page->removeFromSuperview();
  }
}
