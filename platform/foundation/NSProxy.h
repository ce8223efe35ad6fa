#pragma once

#include "platform/api.h"
#include "platform/foundation/NSObject.h"

/// An object that stands for another one: messages that it does not answer itself go to its
/// forwarding target, arguments and results unchanged. Without a target they do nothing and answer
/// with nothing.
class PLATFORM_API NSProxy : public NSObject {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }
};
