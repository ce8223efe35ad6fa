#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/api.h"
#include "platform/foundation/NSRunLoop.h"
#include "platform/foundation/Subclass.h"

/// Sends a message to its target on every refresh of the screen, while the screen shows something.
/// The main run loop keeps the link and the link its target until it is invalidated. The refreshes
/// come from the display refresh service, which is asked for them only while a link waits for
/// them. Main thread.
class PLATFORM_API CADisplayLink : public Subclass<CADisplayLink, NSObject> {
 public:
  static const ClassOf<CADisplayLink> classObject;

  /// `selector` names an action of the target that takes the link.
  static std::shared_ptr<CADisplayLink> displayLinkWithTargetSelector(
      const std::shared_ptr<NSObject>& target, std::string_view selector);

  /// The link is called while the run loop is in that mode.
  void addToRunLoopForMode(NSRunLoop& runLoop, NSRunLoopMode mode);

  bool isPaused() const { return paused_; }
  void setPaused(bool paused);

  /// Seconds between refreshes; 0 before the first one.
  double duration() const { return duration_; }

  /// Ends the link: it is never called again and lets go of its target.
  void invalidate();

  /// For the display refresh service: the screen is refreshed, `duration` seconds after the last
  /// time.
  static void screenDidRefresh(double duration);

 private:
  bool isWaiting() const { return !modes_.empty() && !paused_; }
  void refresh(double duration);
  static void tellService();

  std::shared_ptr<NSObject> target_;
  std::string selector_;
  std::vector<NSRunLoopMode> modes_;
  double duration_ = 0;
  bool paused_ = false;
};
