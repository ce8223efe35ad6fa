#include "platform/uikit/UINavigationController.h"

constexpr ClassDescription UINavigationController::classObject{"UINavigationController",
                                                               &UIViewController::classObject,
                                                               &allocObject<UINavigationController>,
                                                               {}};

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
  if (observer_) {
    observer_->didPush(*controller, animated);
  }
}

std::shared_ptr<UIViewController> UINavigationController::popViewControllerAnimated(bool animated) {
  const auto leaving = topViewController();
  if (!leaving) {
    return nullptr;
  }
  leaving->viewWillDisappear(animated);
  controllers_.pop_back();
  setParentViewController(*leaving, nullptr);
  if (const auto top = topViewController()) {
    top->viewWillAppear(animated);
  }
  if (observer_) {
    observer_->didPop(*leaving, animated);
  }
  return leaving;
}
