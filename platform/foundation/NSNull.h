#pragma once

#include <memory>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"

/// Stands in a list where there is no object.
class PLATFORM_API NSNull : public Subclass<NSNull, NSObject> {
 public:
  static const ClassOf<NSNull> classObject;

  /// The one of the process. Any thread.
  static const std::shared_ptr<NSNull>& null();
};
