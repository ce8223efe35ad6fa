#pragma once

#include <mutex>
#include <utility>
#include <vector>

#include "headless/Event.h"

/// What happened, in order. Any thread.
class Recorder {
 public:
  void record(Event event) {
    const std::lock_guard lock(mutex_);
    events_.push_back(std::move(event));
  }

  /// The events since the last call.
  std::vector<Event> take() {
    const std::lock_guard lock(mutex_);
    return std::exchange(events_, {});
  }

 private:
  std::mutex mutex_;
  std::vector<Event> events_;  // guarded by mutex_
};
