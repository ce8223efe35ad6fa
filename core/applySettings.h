#pragma once

#include <cstdint>
#include <string_view>

#include "core/export.h"

/// Tells the extension that the settings are in force. Not the name that the store posts.
inline constexpr std::string_view kSettingsAppliedNotification =
    "me.orlanvey.quietdial/prefsChanged";

extern "C" {

/// Force-quits the phone app and the in-call service, which start again with the new settings,
/// waits for that, and tells the extension. The result of the final notification call. For callers
/// outside the bundle. Main thread.
QD_EXPORT std::uint32_t applySettings();

/// The same, as the observer of the store's change notification.
QD_EXPORT void preferencesDidChange();
}
