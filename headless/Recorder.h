#pragma once

#include <utility>
#include <vector>

#include "headless/Event.h"

/// What happened, in order. Main thread.
class Recorder {
 public:
  void record(Event event) { events_.push_back(std::move(event)); }

  /// The events since the last call.
  std::vector<Event> take() { return std::exchange(events_, {}); }

 private:
  std::vector<Event> events_;
};
