#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/api.h"

/// The system is short of memory; whoever can do without some gives it back. Posted on the main
/// thread to the default NSNotificationCenter.
inline constexpr std::string_view UIApplicationDidReceiveMemoryWarningNotification =
    "UIApplicationDidReceiveMemoryWarningNotification";
/// How large the user wants texts, from the smallest; kLarge is the usual one.
enum class UIContentSizeCategory : std::uint8_t {
  kExtraSmall,
  kSmall,
  kMedium,
  kLarge,
  kExtraLarge,
  kExtraExtraLarge,
  kExtraExtraExtraLarge,
  kAccessibilityMedium,
  kAccessibilityLarge,
  kAccessibilityExtraLarge,
  kAccessibilityExtraExtraLarge,
  kAccessibilityExtraExtraExtraLarge,
  kLargest = kAccessibilityExtraExtraExtraLarge,
};

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

  UIContentSizeCategory preferredContentSizeCategory() const { return contentSize_; }
  /// For the host. Pages that are there already keep their size.
  void setPreferredContentSizeCategory(UIContentSizeCategory category) { contentSize_ = category; }

 private:
  UIContentSizeCategory contentSize_ = UIContentSizeCategory::kLarge;
};
