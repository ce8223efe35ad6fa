#pragma once

#include <memory>
#include <vector>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIViewController.h"

/// Follows the stack, for the host that shows it. Main thread.
class PLATFORM_API UINavigationControllerObserver {
 public:
  virtual ~UINavigationControllerObserver();
  virtual void didPush(UIViewController& controller, bool animated) = 0;
  virtual void didPop(UIViewController& controller, bool animated) = 0;
};

/// A stack of pages of which the topmost is seen: its view alone stands in the stack's own view.
/// Owns the pages. Main thread.
class PLATFORM_API UINavigationController
    : public Subclass<UINavigationController, UIViewController> {
 public:
  static const ClassOf<UINavigationController> classObject;

  /// The pages from the bottom.
  const std::vector<std::shared_ptr<UIViewController>>& viewControllers() const {
    return controllers_;
  }
  /// Null while the stack is empty.
  std::shared_ptr<UIViewController> topViewController() const;

  /// Puts a page on top: the page that it covers is told that it leaves, the new page's view loads,
  /// it is told that it appears, then the observer hears of it.
  void pushViewControllerAnimated(const std::shared_ptr<UIViewController>& controller,
                                  bool animated);

  /// Takes the top page away and gives it; null when there is none. The page leaves first, then the
  /// one under it appears, then the observer hears of it.
  std::shared_ptr<UIViewController> popViewControllerAnimated(bool animated);

  /// At most one, held without owning it; null for none.
  void setObserver(UINavigationControllerObserver* observer) { observer_ = observer; }

 private:
  void show(UIViewController& controller);

  std::vector<std::shared_ptr<UIViewController>> controllers_;
  UINavigationControllerObserver* observer_ = nullptr;
};
