#pragma once

#include <string_view>

#include "platform/api.h"

/// Writes the line to the system log. Main thread.
PLATFORM_API void NSLog(std::string_view line);
