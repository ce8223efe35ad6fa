#pragma once

#include <string_view>

#include "platform/api.h"

/// What a run loop is busy with. Sources are added for modes, and served while the loop runs in one
/// of them.
using NSRunLoopMode = std::string_view;

inline constexpr NSRunLoopMode NSDefaultRunLoopMode = "kCFRunLoopDefaultMode";
/// The user's finger moves something.
inline constexpr NSRunLoopMode UITrackingRunLoopMode = "UITrackingRunLoopMode";
/// Not a mode to run in: stands for the two above.
inline constexpr NSRunLoopMode NSRunLoopCommonModes = "kCFRunLoopCommonModes";

/// The mode of the main thread's loop; the host runs the loop itself. Main thread.
class PLATFORM_API NSRunLoop {
 public:
  static NSRunLoop& mainRunLoop();

  NSRunLoop(const NSRunLoop&) = delete;
  NSRunLoop& operator=(const NSRunLoop&) = delete;
  NSRunLoop(NSRunLoop&&) = delete;
  NSRunLoop& operator=(NSRunLoop&&) = delete;

  /// For the host: scrolling begins (tracking mode) or is over (default mode).
  void setCurrentMode(NSRunLoopMode mode) { mode_ = mode; }

  /// Whether what was added for `mode` is served now.
  bool serves(NSRunLoopMode mode) const;

 private:
  NSRunLoop() = default;

  NSRunLoopMode mode_ = NSDefaultRunLoopMode;
};
