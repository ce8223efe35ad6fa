#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UINavigationItem.h"
#include "platform/uikit/UIView.h"

class UINavigationController;

/// One page and its view. Main thread.
class PLATFORM_API UIViewController : public Subclass<UIViewController, NSObject> {
 public:
  static const ClassOf<UIViewController> classObject;

  /// The page's view; the first call loads it (loadView, then viewDidLoad).
  const std::shared_ptr<UIView>& view();

  /// The text shown as the page's title; kept in the navigation item.
  const std::string& title() { return navigationItem()->title(); }
  void setTitle(std::string title) { navigationItem()->setTitle(std::move(title)); }
  const std::shared_ptr<UINavigationItem>& navigationItem();

  /// The nearest navigation controller around this page, or null. Asked of a navigation controller,
  /// it is the one around that one.
  std::shared_ptr<UINavigationController> navigationController() const;

  /// Called each time before the page comes into sight and before it leaves it. Overrides call the
  /// superclass's first.
  virtual void viewWillAppear(bool animated);
  virtual void viewWillDisappear(bool animated);

  /// Shows another page above this one, which owns it until it is dismissed. One at a time: while
  /// one is shown, a second is refused. `completion` may be empty.
  void presentViewControllerAnimatedCompletion(const std::shared_ptr<UIViewController>& controller,
                                               bool animated,
                                               const std::function<void()>& completion);
  /// Takes away what this page presented, else what a navigation controller around it did; asked of
  /// a presented page, that page itself.
  void dismissViewControllerAnimatedCompletion(bool animated,
                                               const std::function<void()>& completion);
  const std::shared_ptr<UIViewController>& presentedViewController() const { return presented_; }
  std::shared_ptr<UIViewController> presentingViewController() const { return presenting_.lock(); }

 protected:
  /// Makes the view; the superclass makes an empty one.
  virtual std::shared_ptr<UIView> loadView();
  /// Called once, after the view was made. Overrides call the superclass's first.
  virtual void viewDidLoad();
  /// For controllers that contain others: the parent is held weakly, null for none.
  void setParentViewController(UIViewController& child,
                               const std::shared_ptr<UIViewController>& parent);

 private:
  std::shared_ptr<UIView> view_;
  std::shared_ptr<UINavigationItem> navigationItem_;
  std::weak_ptr<UIViewController> parent_;
  std::shared_ptr<UIViewController> presented_;
  std::weak_ptr<UIViewController> presenting_;
};
