#pragma once

#include <memory>

#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UIWindow.h"

/// What a host of panes shows them in: a window whose root is a navigation controller, and in that,
/// as its only page, the one that panes are pushed onto. A pane presents sheets from either. Main
/// thread.
struct NavigationStacks {
  std::shared_ptr<UIWindow> window;
  std::shared_ptr<UINavigationController> outer;
  std::shared_ptr<UINavigationController> inner;

  /// After the services are installed.
  static PLATFORM_API NavigationStacks make();
};
