#pragma once

#include <memory>

#include "platform/services.h"
#include "settings/services/NotificationsHost.h"

/// What changes lead to outside of this program. Main thread.
struct Effects {
  std::shared_ptr<NotificationBroadcaster> notifications;
  std::shared_ptr<ProcessService> processes;
  std::unique_ptr<NotificationsHost> host;

  /// Other processes are told, and the dialler's are restarted.
  static Effects real();
  static Effects none();
};
