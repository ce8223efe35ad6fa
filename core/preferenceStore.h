#pragma once

#include <optional>
#include <string_view>

#include "platform/foundation/PropertyList.h"

/// The settings file, shared with the extension inside the dialler. It is never cached: each read
/// and each write loads it anew, so that what another process has written is seen at once. Reading
/// on any thread, writing on the main thread. Each pane and cell that holds settings has read and
/// write operations of its own on top of these; they differ in what an absent or an unchanged value
/// does.

inline constexpr std::string_view kSettingsPath =
    "/User/Library/Preferences/me.orlanvey.quietDial.plist";

/// Posted after each write. Not the name that tells the extension to read the file again.
inline constexpr std::string_view kPreferencesChangedNotification =
    "me.orlanvey.quietDial/PreferencesChanged";

/// The value stored under the key, or nothing. A missing or unreadable file holds nothing.
std::optional<PropertyListValue> readPreference(std::string_view key);

/// Stores the value under the key, keeps every other entry of the file, and posts the change
/// notification. Whether the write succeeded is not examined: the notification goes out in any
/// case.
void writePreference(std::string_view key, const PropertyListValue& value);

/// The same without the notification: for what does not concern the dialler.
void storePreference(std::string_view key, const PropertyListValue& value);
