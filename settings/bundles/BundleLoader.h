#pragma once

#include <map>
#include <memory>
#include <string>

#include "linux/BundleEntry.h"
#include "linux/DevicePaths.h"

/// Opens the modules of bundles, each at most once. Main thread.
class BundleLoader {
 public:
  explicit BundleLoader(std::shared_ptr<const DevicePaths> paths);

  /// Makes the bundle's classes known. Empty when they are, else one sentence why they are not; a
  /// module that could not be opened is tried again the next time.
  std::string load(const BundleEntry& entry);

 private:
  std::shared_ptr<const DevicePaths> paths_;
  std::map<std::string, bool> loaded_;  // by bundle path
};
