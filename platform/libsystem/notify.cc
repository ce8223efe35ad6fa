#include "platform/libsystem/notify.h"

#include <string>

#include "platform/foundation/CFNotificationCenter.h"
#include "platform/services.h"

namespace libsystem {

std::uint32_t notify_post(std::string_view name) {
  services().notifications->broadcast(NotificationCall::kNotifyPost, std::string(name));
  CFNotificationCenterDeliverOwn(CFNotificationCenterGetDarwinNotifyCenter(), name);
  return NOTIFY_STATUS_OK;
}

}  // namespace libsystem
