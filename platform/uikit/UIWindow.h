#pragma once

#include <memory>

#include "platform/api.h"
#include "platform/uikit/UIView.h"
#include "platform/uikit/UIViewController.h"

/// The root of the views that are on screen. Main thread.
class PLATFORM_API UIWindow : public UIView {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }

  std::shared_ptr<UIWindow> window() const override;

  /// The page whose view fills the window. The window owns it; null for none.
  const std::shared_ptr<UIViewController>& rootViewController() const { return root_; }
  void setRootViewController(const std::shared_ptr<UIViewController>& controller);

 private:
  std::shared_ptr<UIViewController> root_;
};
