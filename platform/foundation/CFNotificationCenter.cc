#include "platform/foundation/CFNotificationCenter.h"

#include <algorithm>
#include <map>

#include "platform/foundation/MainQueue.h"
#include "platform/foundation/PacedDelivery.h"
#include "platform/services.h"

class CFNotificationCenter {
 public:
  struct Registration {
    CFNotificationCallback callback;
    std::string name;
  };
  std::vector<Registration> registrations;
  // By the names of registrations only: others can post any number of names.
  std::map<std::string, std::shared_ptr<PacedDelivery>, std::less<>> outsidePosts;
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
  CFNotificationCenterDeliverOwn(center, name);
}

void CFNotificationCenterDeliver(CFNotificationCenter& center, std::string_view name) {
  if (std::ranges::find(center.registrations, name, &CFNotificationCenter::Registration::name) ==
      center.registrations.end()) {
    return;
  }
  auto& posts = center.outsidePosts[std::string(name)];
  if (!posts) {
    posts = PacedDelivery::withDelivery(
        [&center, copy = std::string(name)] { CFNotificationCenterDeliverOwn(center, copy); });
  }
  posts->post();
}

void CFNotificationCenterDeliverOwn(CFNotificationCenter& center, std::string_view name) {
  for (const auto& registration : center.registrations) {
    if (registration.name == name) {
      MainQueue::shared().async(registration.callback);
    }
  }
}
