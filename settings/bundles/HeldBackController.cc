#include "settings/bundles/HeldBackController.h"

#include <utility>

#include "platform/foundation/method.h"

namespace {

constexpr auto kMethods =
    methods<HeldBackController>(method<&HeldBackController::openAnyway>("openAnyway"));

}  // namespace

constexpr ClassOf<HeldBackController> HeldBackController::classObject{"HeldBackController",
                                                                      kMethods};

std::shared_ptr<HeldBackController> HeldBackController::forPane(
    const std::string& className, const std::shared_ptr<PSSpecifier>& specifier,
    std::function<void()> open) {
  auto page = allocInit<HeldBackController>();
  page->explanation_ =
      "Settings ended unexpectedly the last time this page (" + className +
      ") was being opened, so it was not opened by itself this time.\n\nIf it happens again, the "
      "bundle that the page comes from may need an update.";
  page->open_ = std::move(open);
  page->setSpecifier(specifier);
  return page;
}

const PSSpecifiers& HeldBackController::specifiers() {
  if (!hasSpecifiers()) {
    auto group = PSSpecifier::groupSpecifierWithName("Page not opened");
    group->setPropertyForKey(PropertyListValue(explanation_), "footerText");
    auto button = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        "Open Anyway", shared_from_this(), "", "", "", PSCellType::kButton, "");
    button->setAction("openAnyway");
    setSpecifiers({group, button});
  }
  return keptSpecifiers();
}

void HeldBackController::openAnyway() {
  const auto keptAlive = shared_from_this();
  if (const auto open = std::exchange(open_, {})) {
    open();
  }
}
