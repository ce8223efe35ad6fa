#include "platform/foundation/PacedDelivery.h"

#include <utility>

#include "platform/foundation/MainQueue.h"
#include "platform/foundation/method.h"
#include "platform/services.h"

namespace {

constexpr double kLeastInterval = 0.2;  // seconds

constexpr auto kMethods =
    methods<PacedDelivery>(method<&PacedDelivery::deliverHeld>("deliverHeld"));

}  // namespace

constexpr ClassOf<PacedDelivery> PacedDelivery::classObject{"PacedDelivery", kMethods};

std::shared_ptr<PacedDelivery> PacedDelivery::withDelivery(std::function<void()> deliver) {
  auto paced = allocInit<PacedDelivery>();
  paced->deliver_ = std::move(deliver);
  return paced;
}

void PacedDelivery::post() {
  if (holds_) {
    return;
  }
  const double now = services().clock->now();
  if (!last_ || now - *last_ >= kLeastInterval) {
    deliver();
    return;
  }
  holds_ = true;
  MainQueue::shared().performSelectorWithObjectAfterDelay(shared_from_this(), "deliverHeld",
                                                          nullptr, *last_ + kLeastInterval - now);
}

void PacedDelivery::deliverHeld() {
  holds_ = false;
  deliver();
}

void PacedDelivery::deliver() {
  last_ = services().clock->now();
  deliver_();
}
