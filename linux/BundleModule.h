#pragma once

#include <memory>
#include <string>

#include "platform/foundation/NSBundle.h"

/// The loadable module of a bundle. It is opened for the whole life of the process: observers that
/// its panes register outlive the panes, so it is never unloaded. Main thread.
class BundleModule {
 public:
  /// Opens the module in the file `modulePath` (a real path) and makes its classes known, as those
  /// of the bundle at the device path `bundlePath`. On failure `error()` says why and nothing is
  /// known.
  BundleModule(const std::string& modulePath, std::string bundlePath);

  /// Null when the module could not be opened.
  const std::shared_ptr<const NSBundle>& bundle() const { return bundle_; }
  /// One sentence; empty when all is well.
  const std::string& error() const { return error_; }

  /// The exported variable of that name, or null.
  template <class Type>
  Type* variable(const char* name) const {
    return static_cast<Type*>(address(name));
  }

 private:
  void* address(const char* name) const;

  void* handle_ = nullptr;
  std::shared_ptr<const NSBundle> bundle_;
  std::string error_;
};
