#include "platform/uikit/UIAlertView.h"

#include <utility>

#include "platform/services.h"

constexpr ClassOf<UIAlertView> UIAlertView::classObject{"UIAlertView"};

bool UIAlertView::initWithTitleMessageCancelButtonTitle(std::string title, std::string message,
                                                        std::string cancelButtonTitle) {
  if (!NSObject::init()) {
    return false;
  }
  title_ = std::move(title);
  message_ = std::move(message);
  cancelButtonTitle_ = std::move(cancelButtonTitle);
  return true;
}

void UIAlertView::show() {
  services().sheets->show(cast<UIAlertView>(shared_from_this()));
}
