#pragma once

#include <memory>
#include <string>

#include "platform/foundation/Subclass.h"
#include "platform/preferences/ExplanationController.h"

/// Stands in for the first page of a bundle that could not be loaded and says why. Main thread.
class BundleFailureController : public Subclass<BundleFailureController, ExplanationController> {
 public:
  static const ClassOf<BundleFailureController> classObject;

  /// `specifier` is the row that was to lead to the bundle's page, `reason` a sentence.
  static std::shared_ptr<BundleFailureController> forBundle(
      const std::string& bundlePath, const std::string& reason,
      const std::shared_ptr<PSSpecifier>& specifier);
};
