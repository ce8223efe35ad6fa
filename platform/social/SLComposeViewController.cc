#include "platform/social/SLComposeViewController.h"

constexpr ClassOf<SLComposeViewController> SLComposeViewController::classObject{
    "SLComposeViewController"};

std::shared_ptr<SLComposeViewController>
SLComposeViewController::composeViewControllerForServiceType(std::string_view serviceType) {
  auto controller = allocInit<SLComposeViewController>();
  controller->serviceType_ = serviceType;
  return controller;
}

void SLComposeViewController::finish() {
  const auto keptAlive = shared_from_this();
  dismissViewControllerAnimatedCompletion(true, {});
}
