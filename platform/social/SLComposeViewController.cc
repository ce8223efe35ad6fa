#include "platform/social/SLComposeViewController.h"

#include <utility>

constexpr ClassOf<SLComposeViewController> SLComposeViewController::classObject{
    "SLComposeViewController"};

std::shared_ptr<SLComposeViewController>
SLComposeViewController::composeViewControllerForServiceType(std::string_view serviceType) {
  auto controller = allocInit<SLComposeViewController>();
  controller->serviceType_ = serviceType;
  return controller;
}

void SLComposeViewController::finish(SLComposeViewControllerResult result) {
  const auto keptAlive = shared_from_this();
  dismissViewControllerAnimatedCompletion(true, {});
  if (const auto handler = std::exchange(completionHandler_, nullptr)) {
    handler(result);
  }
}
