#include "tools/settings/announceChange.h"

#include <memory>
#include <utility>

#include "core/applySettings.h"
#include "core/preferenceStore.h"
#include "linux/DBusNotifications.h"
#include "linux/PosixProcessService.h"
#include "platform/foundation/CFNotificationCenter.h"
#include "platform/services.h"

namespace {

// What applying needs of the machine, while this object lives; then what was posted has been sent.
class ApplyingServices {
 public:
  ApplyingServices() {
    Services services;
    services.notifications = DBusNotifications::forPanes();
    services.processes =
        std::make_shared<PosixProcessService>(PosixProcessService::Messages::kDropped);
    installServices(std::move(services));
  }
  ApplyingServices(const ApplyingServices&) = delete;
  ApplyingServices& operator=(const ApplyingServices&) = delete;
  ApplyingServices(ApplyingServices&&) = delete;
  ApplyingServices& operator=(ApplyingServices&&) = delete;
  ~ApplyingServices() { installServices({}); }
};

}  // namespace

void announceChange() {
  const ApplyingServices services;
  CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(),
                                       kPreferencesChangedNotification, true);
  applySettings();
}

void applyAgain() {
  const ApplyingServices services;
  applySettings();
}
