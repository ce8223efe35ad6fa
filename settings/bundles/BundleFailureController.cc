#include "settings/bundles/BundleFailureController.h"

constexpr ClassOf<BundleFailureController> BundleFailureController::classObject{
    "BundleFailureController"};

std::shared_ptr<BundleFailureController> BundleFailureController::forBundle(
    const std::string& bundlePath, const std::string& reason,
    const std::shared_ptr<PSSpecifier>& specifier) {
  auto page = allocInit<BundleFailureController>();
  page->explanation_ = "The bundle " + bundlePath + " could not be loaded.\n\n" + reason;
  page->setSpecifier(specifier);
  return page;
}

const PSSpecifiers& BundleFailureController::specifiers() {
  if (!hasSpecifiers()) {
    auto group = PSSpecifier::groupSpecifierWithName("Settings not available");
    group->setPropertyForKey(PropertyListValue(explanation_), "footerText");
    setSpecifiers({group});
  }
  return keptSpecifiers();
}
