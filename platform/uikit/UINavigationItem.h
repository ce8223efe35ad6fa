#pragma once

#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIBarButtonItem.h"
#include "platform/uikit/UIView.h"

/// What the navigation bar shows while a page is on top. Main thread.
class PLATFORM_API UINavigationItem : public Subclass<UINavigationItem, NSObject> {
 public:
  static const ClassOf<UINavigationItem> classObject;

  const std::string& title() const { return title_; }
  void setTitle(std::string title) { title_ = std::move(title); }
  /// Stands in the title's place; null for the title itself.
  const std::shared_ptr<UIView>& titleView() const { return titleView_; }
  void setTitleView(const std::shared_ptr<UIView>& view) { titleView_ = view; }
  const std::shared_ptr<UIBarButtonItem>& rightBarButtonItem() const { return right_; }
  void setRightBarButtonItem(const std::shared_ptr<UIBarButtonItem>& item) { right_ = item; }

 private:
  std::string title_;
  std::shared_ptr<UIView> titleView_;
  std::shared_ptr<UIBarButtonItem> right_;
};
