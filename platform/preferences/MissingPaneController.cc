#include "platform/preferences/MissingPaneController.h"

constexpr ClassOf<MissingPaneController> MissingPaneController::classObject{
    "MissingPaneController"};

namespace {

std::string sentenceOn(const std::string& className, MissingPaneReason reason) {
  switch (reason) {
    case MissingPaneReason::kNoSuchClass:
      return "This page is made by the class “" + className +
             "”, which is not part of this version.";
    case MissingPaneReason::kNoPane:
      return "This row names the class “" + className + "”, which is not a page.";
    case MissingPaneReason::kNotMade:
      break;
  }
  return "The class “" + className + "” could not set up this page.";
}

}  // namespace

std::shared_ptr<MissingPaneController> MissingPaneController::forClass(
    const std::string& className, MissingPaneReason reason,
    const std::shared_ptr<PSSpecifier>& specifier) {
  auto pane = allocInit<MissingPaneController>();
  pane->explain("Page not available", sentenceOn(className, reason));
  pane->setSpecifier(specifier);
  return pane;
}
