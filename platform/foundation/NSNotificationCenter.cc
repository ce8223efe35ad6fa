#include "platform/foundation/NSNotificationCenter.h"

constexpr ClassOf<NSNotification> NSNotification::classObject{"NSNotification"};

NSNotificationCenter& NSNotificationCenter::defaultCenter() {
  // Never destroyed: observers may still remove themselves while the process ends.
  static auto* center = new NSNotificationCenter;  // NOLINT(cppcoreguidelines-owning-memory)
  return *center;
}

void NSNotificationCenter::addObserverSelectorNameObject(NSObject& observer,
                                                         std::string_view selector,
                                                         std::string_view name,
                                                         const std::shared_ptr<NSObject>& object) {
  registrations_.push_back({&observer, std::string(selector), std::string(name), object.get()});
}

void NSNotificationCenter::removeObserver(const NSObject& observer) {
  if (posts_ == 0) {
    std::erase_if(registrations_, [&](const auto& each) { return each.observer == &observer; });
    return;
  }
  for (auto& registration : registrations_) {
    if (registration.observer == &observer) {
      registration.observer = nullptr;
    }
  }
}

void NSNotificationCenter::postNotificationNameObject(std::string_view name,
                                                      const std::shared_ptr<NSObject>& object) {
  const auto notification = allocInit<NSNotification>();
  notification->name_ = name;
  notification->object_ = object;
  ++posts_;
  // By place: observers may add and remove registrations meanwhile. Those added are not called.
  const std::size_t count = registrations_.size();
  for (std::size_t place = 0; place < count; ++place) {
    const auto& registration = registrations_[place];
    if (registration.observer && registration.name == name &&
        (!registration.object || registration.object == object.get())) {
      const std::string selector = registration.selector;
      registration.observer->performAction(selector, notification.get());
    }
  }
  if (--posts_ == 0) {
    std::erase_if(registrations_, [](const auto& each) { return !each.observer; });
  }
}
