#pragma once

#include "platform/api.h"
#include "platform/foundation/Subclass.h"

/// An object that stands for another one: messages that it does not answer itself go to its
/// forwarding target, arguments and results unchanged. Without a target they do nothing and answer
/// with nothing.
class PLATFORM_API NSProxy : public Subclass<NSProxy, NSObject> {
 public:
  static const ClassOf<NSProxy> classObject;
};
