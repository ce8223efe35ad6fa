#pragma once

#include <string>

#include "platform/api.h"

/// The running application, as far as pages ask something of it. Main thread.
class PLATFORM_API UIApplication {
 public:
  static UIApplication& sharedApplication();

  /// Whether something on this machine handles addresses of that scheme.
  bool canOpenURL(const std::string& url) const;
  /// Hands the address to whatever handles it; nothing happens when nothing does.
  void openURL(const std::string& url) const;
};
