#include "platform/preferences/ExplanationController.h"

#include <algorithm>
#include <iterator>
#include <utility>

constexpr ClassOf<ExplanationController> ExplanationController::classObject{
    "ExplanationController"};

void ExplanationController::explain(std::string heading, std::string explanation) {
  heading_ = std::move(heading);
  explanation_ = std::move(explanation);
}

const PSSpecifiers& ExplanationController::specifiers() {
  if (!hasSpecifiers()) {
    auto group = PSSpecifier::groupSpecifierWithName(heading_);
    group->setPropertyForKey(PropertyListValue(explanation_), "footerText");
    PSSpecifiers all{std::move(group)};
    std::ranges::move(rows(), std::back_inserter(all));
    setSpecifiers(std::move(all));
  }
  return keptSpecifiers();
}
