#include "platform/foundation/NSObject.h"

#include <sstream>

#include "platform/foundation/MainQueue.h"

constexpr ClassDescription NSObject::classObject{"NSObject", nullptr, &allocObject<NSObject>, {}};

NSObject::~NSObject() = default;

bool NSObject::init() {
  return true;
}

const ClassDescription& NSObject::classDescription() const {
  return classObject;
}

bool NSObject::respondsToSelector(std::string_view selector) const {
  if (classDescription().methodForSelector(selector)) {
    return true;
  }
  const auto target = forwardingTargetForSelector(selector);
  return target && target->respondsToSelector(selector);
}

std::string NSObject::description() const {
  std::ostringstream text;
  text << '<' << classDescription().name << ": " << this << '>';
  return text.str();
}

std::shared_ptr<NSObject> NSObject::forwardingTargetForSelector(
    std::string_view /*selector*/) const {
  return nullptr;
}

namespace {

template <class Implementation>
Implementation implementationOf(const NSObject& receiver, std::string_view selector) {
  const auto* method = receiver.classDescription().methodForSelector(selector);
  const auto* implementation =
      method ? std::get_if<Implementation>(&method->implementation) : nullptr;
  return implementation ? *implementation : nullptr;
}

}  // namespace

bool NSObject::performAction(std::string_view selector, NSObject* sender) {
  const auto action = implementationOf<Method::Action>(*this, selector);
  if (!action) {
    const auto target = forwardingTargetForSelector(selector);
    return target && target->performAction(selector, sender);
  }
  const auto keptAlive = weak_from_this().lock();
  action(*this, sender);
  return true;
}

std::optional<PropertyListValue> NSObject::performGetter(std::string_view selector, NSObject& row) {
  const auto getter = implementationOf<Method::Getter>(*this, selector);
  if (!getter) {
    const auto target = forwardingTargetForSelector(selector);
    return target ? target->performGetter(selector, row) : std::nullopt;
  }
  return getter(*this, row);
}

bool NSObject::performSetter(std::string_view selector, const PropertyListValue& value,
                             NSObject& row) {
  const auto setter = implementationOf<Method::Setter>(*this, selector);
  if (!setter) {
    const auto target = forwardingTargetForSelector(selector);
    return target && target->performSetter(selector, value, row);
  }
  const auto keptAlive = weak_from_this().lock();
  setter(*this, value, row);
  return true;
}

void MainQueueDeleter::operator()(NSObject* object) const {
  auto& queue = MainQueue::shared();
  if (queue.isCurrent()) {
    delete object;  // NOLINT(cppcoreguidelines-owning-memory): this is the owner's deleter
  } else {
    queue.async([object] { delete object; });
  }
}
