#pragma once

#include <vector>

#include "headless/Event.h"

/// What applying the settings does, in its order: the phone application is ended, waited for, and
/// the extension is told.
inline const std::vector<Event> kApplied{
    SpawnEvent{"/usr/bin/killall", {"killall", "-9", "MobilePhone", "InCallService"}, std::nullopt},
    WaitEvent{4},
    PostEvent{NotificationCall::kNotifyPost, "me.orlanvey.quietdial/prefsChanged"},
};
