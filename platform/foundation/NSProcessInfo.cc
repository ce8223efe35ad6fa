#include "platform/foundation/NSProcessInfo.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace {

std::unique_ptr<NSProcessInfo>& current() {
  static std::unique_ptr<NSProcessInfo> info = std::make_unique<NSProcessInfo>();
  return info;
}

}  // namespace

NSProcessInfo::~NSProcessInfo() = default;

NSProcessInfo& NSProcessInfo::processInfo() {
  return *current();
}

unsigned NSProcessInfo::activeProcessorCount() const {
  return std::max(std::thread::hardware_concurrency(), 1U);
}

void NSProcessInfo::setProcessInfo(std::unique_ptr<NSProcessInfo> info) {
  current() = info ? std::move(info) : std::make_unique<NSProcessInfo>();
}
