#include "platform/uikit/NavigationStacks.h"

NavigationStacks NavigationStacks::make() {
  NavigationStacks stacks{.window = allocInit<UIWindow>(),
                          .outer = allocInit<UINavigationController>(),
                          .inner = allocInit<UINavigationController>()};
  stacks.outer->pushViewControllerAnimated(stacks.inner, false);
  stacks.window->setRootViewController(stacks.outer);
  return stacks;
}
