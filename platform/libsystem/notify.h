#pragma once

#include <cstdint>
#include <string_view>

#include "platform/api.h"

namespace libsystem {

inline constexpr std::uint32_t NOTIFY_STATUS_OK = 0;

/// Posts a Darwin notification by the plain call. It reaches the same observers as one posted
/// through the notification centre. Main thread.
PLATFORM_API std::uint32_t notify_post(std::string_view name);

}  // namespace libsystem
