#pragma once

#include <memory>

#include "headless/Recorder.h"
#include "platform/services.h"

/// Records what is posted, and hands it on where there is somebody to hand it to.
class RecordingNotifications : public NotificationBroadcaster {
 public:
  /// `next` may be null: notifications then stay inside the process.
  RecordingNotifications(std::shared_ptr<Recorder> recorder,
                         std::shared_ptr<NotificationBroadcaster> next);

  void broadcast(NotificationCall call, const std::string& name) override;

 private:
  std::shared_ptr<Recorder> recorder_;
  std::shared_ptr<NotificationBroadcaster> next_;
};
