#pragma once

#include "platform/services.h"

/// The machine's clock, which goes on at the same pace whatever is done to the time of day.
class SystemClock final : public Clock {
 public:
  double now() const override;
};
