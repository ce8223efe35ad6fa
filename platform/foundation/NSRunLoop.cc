#include "platform/foundation/NSRunLoop.h"

NSRunLoop& NSRunLoop::mainRunLoop() {
  static NSRunLoop loop;
  return loop;
}

bool NSRunLoop::serves(NSRunLoopMode mode) const {
  const bool isCommon = mode_ == NSDefaultRunLoopMode || mode_ == UITrackingRunLoopMode;
  return mode == mode_ || (mode == NSRunLoopCommonModes && isCommon);
}
