#pragma once

#include <memory>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIView.h"
#include "platform/uikit/UIViewController.h"

/// The root of the views that are on screen. Main thread.
class PLATFORM_API UIWindow : public Subclass<UIWindow, UIView> {
 public:
  static const ClassOf<UIWindow> classObject;

  std::shared_ptr<UIWindow> window() const override;

  /// The page whose view fills the window. The window owns it; null for none.
  void setRootViewController(const std::shared_ptr<UIViewController>& controller);

 private:
  std::shared_ptr<UIViewController> root_;
};
