#include "linux/SystemClock.h"

#include <chrono>

double SystemClock::now() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}
