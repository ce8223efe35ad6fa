#pragma once

#include "platform/foundation/Subclass.h"
#include "platform/foundation/method.h"

/// Counts how often it is told that an animation has stopped.
class StopCounter : public Subclass<StopCounter, NSObject> {
 public:
  static const ClassOf<StopCounter> classObject;

  void didStopAnimation() { ++stops; }

  int stops = 0;
};

inline constexpr auto kStopCounterMethods =
    methods<StopCounter>(method<&StopCounter::didStopAnimation>("didStopAnimation"));
inline constexpr ClassOf<StopCounter> StopCounter::classObject{"StopCounter", kStopCounterMethods};
