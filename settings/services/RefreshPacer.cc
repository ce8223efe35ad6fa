#include "settings/services/RefreshPacer.h"

#include <cmath>

void RefreshPacer::start(double now, double interval) {
  origin_ = now;
  interval_ = interval;
  taken_ = 0;
}

int RefreshPacer::take(double now) {
  const double passed = std::floor((now - origin_) / interval_);
  const double due = passed - taken_;
  if (due <= 0) {
    return 0;
  }
  if (due * interval_ > kLongestGap) {
    start(now, interval_);
    return 1;
  }
  taken_ = passed;
  return static_cast<int>(due);
}

double RefreshPacer::nextDue() const {
  return origin_ + (taken_ + 1) * interval_;
}
