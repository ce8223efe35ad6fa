#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/api.h"

/// The system-wide (Darwin) notification centre, as this process sees it. A notification is a bare
/// name. Posting returns before anything is delivered; each post of this process is one delivery,
/// on the main queue, to each registration of that name here; such posts are never merged. Of what
/// other processes post by one name, the first is delivered at once, then at most five a second,
/// the last one surely: whoever posts without end, or answers each delivery, does not hold up the
/// rest.
class CFNotificationCenter;

/// An observer; the notification's details are not handed over, since a name is all there is.
using CFNotificationCallback = void (*)();

/// Kept as callers state it. Delivery is never suspended on this platform, so nothing depends on
/// it.
enum class CFNotificationSuspensionBehavior {
  kDrop = 1,
  kCoalesce = 2,
  kHold = 3,
  kDeliverImmediately = 4
};

/// The one centre of this process; it lives as long as the process.
PLATFORM_API CFNotificationCenter& CFNotificationCenterGetDarwinNotifyCenter();

/// Adds a registration; the same callback may be registered many times and is then called as often.
/// Main thread.
PLATFORM_API void CFNotificationCenterAddObserver(
    CFNotificationCenter& center, CFNotificationCallback callback, std::string_view name,
    CFNotificationSuspensionBehavior suspensionBehavior);

/// Tells other processes and this one's observers. `deliverImmediately` is kept as callers state
/// it; see the suspension behaviour. Main thread.
PLATFORM_API void CFNotificationCenterPostNotification(CFNotificationCenter& center,
                                                       std::string_view name,
                                                       bool deliverImmediately);

/// For the notification service: another process has posted. Main thread.
PLATFORM_API void CFNotificationCenterDeliver(CFNotificationCenter& center, std::string_view name);

/// For the calls that post: this process has posted. Main thread.
void CFNotificationCenterDeliverOwn(CFNotificationCenter& center, std::string_view name);
