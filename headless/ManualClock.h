#pragma once

#include "platform/services.h"

/// A clock that stands still until it is moved. Main thread.
class ManualClock : public Clock {
 public:
  double now() const override { return now_; }
  void advance(double seconds) { now_ += seconds; }

 private:
  double now_ = 0;
};
