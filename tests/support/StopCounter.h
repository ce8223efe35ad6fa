#pragma once

#include <array>

#include "platform/foundation/NSObject.h"
#include "platform/foundation/method.h"

/// Counts how often it is told that an animation has stopped.
class StopCounter : public NSObject {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }

  void didStopAnimation() { ++stops; }

  int stops = 0;
};

inline constexpr std::array kStopCounterMethods{
    method<&StopCounter::didStopAnimation>("didStopAnimation")};
inline constexpr ClassDescription StopCounter::classObject{
    "StopCounter", &NSObject::classObject, &allocObject<StopCounter>, kStopCounterMethods};
