#pragma once

#include <functional>
#include <memory>
#include <thread>
#include <vector>

#include "linux/FileDescriptor.h"
#include "linux/LowMemorySource.h"

/// Waits, on a thread of its own, for the system to run short of memory. It costs nothing while
/// there is nothing to tell. Made and destroyed on the main thread.
class LowMemoryWatch {
 public:
  /// Makes a source; null where the machine does not have it.
  using SourceMaker = std::function<std::unique_ptr<LowMemorySource>()>;

  /// The system's low-memory monitor, else the kernel's pressure file.
  static std::vector<SourceMaker> systemSources();

  /// `warn` is called on the main queue at each shortage, and after the watch has gone no more. The
  /// first source that is there is used, and the next one when it goes; without any, shortages pass
  /// unnoticed.
  LowMemoryWatch(std::vector<SourceMaker> sources, std::function<void()> warn);
  LowMemoryWatch(const LowMemoryWatch&) = delete;
  LowMemoryWatch& operator=(const LowMemoryWatch&) = delete;
  LowMemoryWatch(LowMemoryWatch&&) = delete;
  LowMemoryWatch& operator=(LowMemoryWatch&&) = delete;
  ~LowMemoryWatch();

 private:
  void run(const std::vector<SourceMaker>& sources);
  /// False when the watch is to end, true when the source has gone.
  bool follow(LowMemorySource& source);

  std::shared_ptr<const std::function<void()>> warn_;
  FileDescriptor end_;
  std::thread thread_;
};
