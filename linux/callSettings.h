#pragma once

#include "calling/Surroundings.h"
#include "linux/DevicePaths.h"

/// What the settings file says of calls; defaults for what it does not. Any thread.
CallSettings readCallSettings(const DevicePaths& paths);

/// The region of the user's locale, as `LC_ALL`, `LC_TELEPHONE` or `LANG` name it; empty where it
/// names none.
std::string localeRegion();
