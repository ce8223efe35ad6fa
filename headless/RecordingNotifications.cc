#include "headless/RecordingNotifications.h"

#include <utility>

RecordingNotifications::RecordingNotifications(std::shared_ptr<Recorder> recorder,
                                               std::shared_ptr<NotificationBroadcaster> next)
    : recorder_(std::move(recorder)), next_(std::move(next)) {}

void RecordingNotifications::broadcast(NotificationCall call, const std::string& name) {
  recorder_->record(PostEvent{call, name});
  if (next_) {
    next_->broadcast(call, name);
  }
}
