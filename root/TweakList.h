#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

/// Identifiers of tweaks, in an order that matters.
using Tweaks = std::vector<std::string>;

/// A list of tweaks that is replaced as a whole and never changed: whoever has taken it keeps what
/// they took. Any thread. A variable of this class is constant data when it is loaded and is never
/// taken down, since tasks may still use it while the process ends.
class TweakList {
 public:
  constexpr TweakList() = default;

  /// Null until one has been set.
  std::shared_ptr<const Tweaks> tweaks() const {
    const std::lock_guard lock(mutex_);
    return tweaks_ ? *tweaks_ : nullptr;
  }

  void setTweaks(std::shared_ptr<const Tweaks> tweaks) {
    const std::lock_guard lock(mutex_);
    if (!tweaks_) {
      tweaks_ = new std::shared_ptr<const Tweaks>;  // NOLINT(cppcoreguidelines-owning-memory)
    }
    // The former list is let go by the argument, after the lock.
    tweaks_->swap(tweaks);
  }

 private:
  mutable std::mutex mutex_;
  std::shared_ptr<const Tweaks>* tweaks_ = nullptr;  // guarded by mutex_
};
