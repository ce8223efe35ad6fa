#pragma once

#include <memory>

#include "platform/api.h"

/// What a program can know of the device that runs it. Main thread.
class PLATFORM_API NSProcessInfo {
 public:
  static NSProcessInfo& processInfo();

  NSProcessInfo() = default;
  virtual ~NSProcessInfo();
  NSProcessInfo(const NSProcessInfo&) = delete;
  NSProcessInfo& operator=(const NSProcessInfo&) = delete;
  NSProcessInfo(NSProcessInfo&&) = delete;
  NSProcessInfo& operator=(NSProcessInfo&&) = delete;

  /// Processors that can run something; at least 1.
  virtual unsigned activeProcessorCount() const;

  /// Puts another description of the device in the place of the real one; null brings that back.
  static void setProcessInfo(std::unique_ptr<NSProcessInfo> info);
};
