#include "platform/foundation/NSNull.h"

constexpr ClassOf<NSNull> NSNull::classObject{"NSNull"};

const std::shared_ptr<NSNull>& NSNull::null() {
  // Never destroyed: lists may still be dropped while the process ends.
  static const auto* const kNull =
      new std::shared_ptr<NSNull>(allocInit<NSNull>());  // NOLINT(cppcoreguidelines-owning-memory)
  return *kNull;
}
