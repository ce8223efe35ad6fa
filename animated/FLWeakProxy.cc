#include "animated/FLWeakProxy.h"

constexpr ClassOf<FLWeakProxy> FLWeakProxy::classObject{"FLWeakProxy"};

std::shared_ptr<FLWeakProxy> FLWeakProxy::weakProxyForObject(
    const std::shared_ptr<NSObject>& object) {
  auto proxy = alloc<FLWeakProxy>();
  proxy->setTarget(object);
  return proxy;
}

std::shared_ptr<NSObject> FLWeakProxy::forwardingTargetForSelector(
    std::string_view /*selector*/) const {
  return target();
}
