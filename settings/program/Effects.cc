#include "settings/program/Effects.h"

#include "linux/DBusNotifications.h"
#include "linux/PosixProcessService.h"
#include "platform/foundation/CFNotificationCenter.h"
#include "settings/services/NoBroadcast.h"
#include "settings/services/NoProcesses.h"

Effects Effects::real() {
  const auto notifications = std::make_shared<DBusNotifications>([](const std::string& name) {
    CFNotificationCenterDeliver(CFNotificationCenterGetDarwinNotifyCenter(), name);
  });
  return {notifications, std::make_shared<PosixProcessService>(),
          std::make_unique<NotificationsHost>(notifications)};
}

Effects Effects::none() {
  return {std::make_shared<NoBroadcast>(), std::make_shared<NoProcesses>(), nullptr};
}
