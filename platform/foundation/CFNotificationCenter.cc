#include "platform/foundation/CFNotificationCenter.h"

#include <utility>

#include "platform/foundation/MainQueue.h"
#include "platform/services.h"

class CFNotificationCenter {
 public:
  struct Registration {
    CFNotificationCallback callback;
    std::string name;
  };
  std::vector<Registration> registrations;
};

CFNotificationCenter& CFNotificationCenterGetDarwinNotifyCenter() {
  static CFNotificationCenter center;
  return center;
}

void CFNotificationCenterAddObserver(CFNotificationCenter& center, CFNotificationCallback callback,
                                     std::string_view name,
                                     CFNotificationSuspensionBehavior /*suspensionBehavior*/) {
  center.registrations.push_back({callback, std::string(name)});
}

void CFNotificationCenterPostNotification(CFNotificationCenter& center, std::string_view name,
                                          bool /*deliverImmediately*/) {
  services().notifications->broadcast(NotificationCall::kCFNotificationCenter, std::string(name));
  CFNotificationCenterDeliver(center, name);
}

void CFNotificationCenterDeliver(CFNotificationCenter& center, std::string_view name) {
  for (const auto& registration : center.registrations) {
    if (registration.name == name) {
      MainQueue::shared().async(registration.callback);
    }
  }
}
