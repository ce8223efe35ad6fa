#include "settings/bundles/HeldBackController.h"

#include <utility>

#include "platform/foundation/method.h"

namespace {

constexpr const char* kAdvice =
    "If it happens again, the bundle that the page comes from may need an update.";

constexpr auto kMethods =
    methods<HeldBackController>(method<&HeldBackController::openAnyway>("openAnyway"));

}  // namespace

constexpr ClassOf<HeldBackController> HeldBackController::classObject{"HeldBackController",
                                                                      kMethods};

std::shared_ptr<HeldBackController> HeldBackController::forPane(
    const std::string& className, const std::shared_ptr<PSSpecifier>& specifier,
    std::function<void()> open) {
  auto page = allocInit<HeldBackController>();
  page->explain("Page not opened",
                "Settings ended unexpectedly the last time this page (" + className +
                    ") was being opened, so it was not opened by itself this time.\n\n" + kAdvice);
  page->open_ = std::move(open);
  page->setSpecifier(specifier);
  return page;
}

PSSpecifiers HeldBackController::rows() {
  auto button = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      "Open Anyway", shared_from_this(), "", "", "", PSCellType::kButton, "");
  button->setAction("openAnyway");
  return {button};
}

void HeldBackController::openAnyway() {
  const auto keptAlive = shared_from_this();
  if (const auto open = std::exchange(open_, {})) {
    open();
  }
}
