#include "linux/SystemClock.h"

#include <chrono>

#include <gtest/gtest.h>

TEST(SystemClock, CountsSecondsAndNeverGoesBack) {
  const SystemClock clock;
  const auto start = std::chrono::steady_clock::now();
  const double first = clock.now();
  double last = first;
  while (last - first < 0.02) {
    const double now = clock.now();
    ASSERT_GE(now, last);
    last = now;
  }
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(19));
}
