#include "platform/uikit/UIApplication.h"

#include "platform/foundation/NSNotificationCenter.h"
#include "platform/services.h"

UIApplication& UIApplication::sharedApplication() {
  static UIApplication application;
  return application;
}

bool UIApplication::canOpenURL(const std::string& url) const {
  return services().addresses->canOpen(url);
}

void UIApplication::openURL(const std::string& url) const {
  services().addresses->open(url);
}

void UIApplication::didReceiveMemoryWarning() const {
  NSNotificationCenter::defaultCenter().postNotificationNameObject(
      UIApplicationDidReceiveMemoryWarningNotification, nullptr);
}
