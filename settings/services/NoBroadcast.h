#pragma once

#include <string>

#include "platform/services.h"

/// Notifications reach the observers of this process; no other process is told.
class NoBroadcast final : public NotificationBroadcaster {
 public:
  void broadcast(NotificationCall /*call*/, const std::string& /*name*/) override {}
};
