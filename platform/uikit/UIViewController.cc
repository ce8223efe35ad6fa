#include "platform/uikit/UIViewController.h"

#include <utility>

#include "platform/services.h"
#include "platform/uikit/UINavigationController.h"

constexpr ClassOf<UIViewController> UIViewController::classObject{"UIViewController"};

const std::shared_ptr<UIView>& UIViewController::view() {
  if (!view_) {
    view_ = loadView();
    viewDidLoad();
  }
  return view_;
}

const std::shared_ptr<UINavigationItem>& UIViewController::navigationItem() {
  if (!navigationItem_) {
    navigationItem_ = allocInit<UINavigationItem>();
  }
  return navigationItem_;
}

std::shared_ptr<UINavigationController> UIViewController::navigationController() const {
  for (auto ancestor = parent_.lock(); ancestor; ancestor = ancestor->parent_.lock()) {
    if (auto controller = cast<UINavigationController>(ancestor)) {
      return controller;
    }
  }
  return nullptr;
}

void UIViewController::viewWillAppear(bool /*animated*/) {}

void UIViewController::viewWillDisappear(bool /*animated*/) {}

void UIViewController::presentViewControllerAnimatedCompletion(
    const std::shared_ptr<UIViewController>& controller, bool /*animated*/,
    const std::function<void()>& completion) {
  if (presented_) {
    return;
  }
  presented_ = controller;
  controller->presenting_ = cast<UIViewController>(shared_from_this());
  services().sheets->present(*this, controller);
  if (completion) {
    completion();
  }
}

void UIViewController::dismissViewControllerAnimatedCompletion(
    bool animated, const std::function<void()>& completion) {
  if (!presented_) {
    const auto parent = parent_.lock();
    if (const auto responsible = parent ? parent : presenting_.lock()) {
      responsible->dismissViewControllerAnimatedCompletion(animated, completion);
    }
    return;
  }
  const auto controller = std::exchange(presented_, nullptr);
  controller->presenting_.reset();
  services().sheets->dismiss(*controller);
  if (completion) {
    completion();
  }
}

std::shared_ptr<UIView> UIViewController::loadView() {
  return allocInit<UIView>();
}

void UIViewController::viewDidLoad() {}

void UIViewController::setParentViewController(UIViewController& child,
                                               const std::shared_ptr<UIViewController>& parent) {
  child.parent_ = parent;
}
