#pragma once

#include <memory>
#include <string_view>

#include "platform/foundation/NSProxy.h"
#include "platform/foundation/Subclass.h"

/// Stands for an object that must not be kept alive: passes every message on while the object
/// lives, and does nothing afterwards. For targets of timers and display links. Any thread.
class FLWeakProxy : public Subclass<FLWeakProxy, NSProxy> {
 public:
  static const ClassOf<FLWeakProxy> classObject;

  /// `object` may be null; the proxy then behaves as one whose target has gone.
  static std::shared_ptr<FLWeakProxy> weakProxyForObject(const std::shared_ptr<NSObject>& object);

  /// Null once the target has gone.
  std::shared_ptr<NSObject> target() const { return _target.lock(); }
  /// Not while messages are sent to the proxy on another thread.
  void setTarget(const std::shared_ptr<NSObject>& target) { _target = target; }

  std::shared_ptr<NSObject> forwardingTargetForSelector(std::string_view selector) const override;

 private:
  std::weak_ptr<NSObject> _target;
};
