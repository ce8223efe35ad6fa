#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "platform/foundation/Subclass.h"

/// Delivers something that may be posted far more often than it is worth acting on: the first post
/// at once, then at most five a second of the installed clock, the last one surely. What is held
/// back meanwhile counts as one. Main thread.
class PacedDelivery final : public Subclass<PacedDelivery, NSObject> {
 public:
  static const ClassOf<PacedDelivery> classObject;

  /// `deliver` may post again.
  static std::shared_ptr<PacedDelivery> withDelivery(std::function<void()> deliver);

  void post();

  /// Called by the main queue when the time has come for what was held back.
  void deliverHeld();

 private:
  void deliver();

  std::function<void()> deliver_;
  std::optional<double> last_;  // when something was delivered, by the clock
  bool holds_ = false;
};
