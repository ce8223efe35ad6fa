#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/api.h"
#include "platform/foundation/ClassDescription.h"

/// A loaded bundle: the classes of one module and the folder of its resources.
class PLATFORM_API NSBundle {
 public:
  /// Registers a module's classes and remembers their folder (a device path without a trailing
  /// "/"). The bundle lives as long as the process. Main thread.
  static std::shared_ptr<const NSBundle> load(std::string bundlePath, const ClassTable& table);

  /// The bundle that holds the class, or the nearest superclass that any bundle holds; null for a
  /// class of the frameworks. Main thread.
  static std::shared_ptr<const NSBundle> bundleForClass(const ClassDescription& description);

  const std::string& bundlePath() const { return bundlePath_; }

  /// "bundlePath/name.type". Whether the file exists is not asked.
  std::string pathForResource(std::string_view name, std::string_view type) const;

 private:
  NSBundle(std::string bundlePath, const ClassTable& table);

  std::string bundlePath_;
  ClassTable table_;
};
