#pragma once

#include <memory>
#include <string>

#include "linux/DevicePaths.h"
#include "platform/foundation/NSBundle.h"

/// The loadable module of a bundle. It is opened for the whole life of the process: observers that
/// its panes register outlive the panes, so it is never unloaded. Main thread.
class BundleModule {
 public:
  /// Opens the module of a bundle, by its device path, and makes its classes known. It is opened
  /// only where DevicePaths has it for this user, and only where the module and its folder belong
  /// to root or to the user and nobody else may write them. On failure `error()` says why and
  /// nothing is known.
  BundleModule(const DevicePaths& paths, const std::string& modulePath);

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
