#pragma once

#include <memory>

#include "platform/api.h"
#include "platform/foundation/NSObject.h"

/// Stands in a list where there is no object.
class PLATFORM_API NSNull : public NSObject {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }

  /// The one of the process. Any thread.
  static const std::shared_ptr<NSNull>& null();
};
