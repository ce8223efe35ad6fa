#pragma once

#include <string>
#include <string_view>

#include "platform/api.h"

/// The system is short of memory; whoever can do without some gives it back. Posted on the main
/// thread to the default NSNotificationCenter.
inline constexpr std::string_view UIApplicationDidReceiveMemoryWarningNotification =
    "UIApplicationDidReceiveMemoryWarningNotification";

/// The running application, as far as pages ask something of it. Main thread.
class PLATFORM_API UIApplication {
 public:
  static UIApplication& sharedApplication();

  /// Whether something on this machine handles addresses of that scheme.
  bool canOpenURL(const std::string& url) const;
  /// Hands the address to whatever handles it; nothing happens when nothing does.
  void openURL(const std::string& url) const;

  /// For the host: the system is short of memory. Tells everybody who observes the notification.
  void didReceiveMemoryWarning() const;
};
