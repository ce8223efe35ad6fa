#include "settings/bundles/BundleFailureController.h"

constexpr ClassOf<BundleFailureController> BundleFailureController::classObject{
    "BundleFailureController"};

std::shared_ptr<BundleFailureController> BundleFailureController::forBundle(
    const std::string& bundlePath, const std::string& reason,
    const std::shared_ptr<PSSpecifier>& specifier) {
  auto page = allocInit<BundleFailureController>();
  page->explain("Settings not available",
                "The bundle " + bundlePath + " could not be loaded.\n\n" + reason);
  page->setSpecifier(specifier);
  return page;
}
