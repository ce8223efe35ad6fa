#pragma once

#include <string_view>

#include "platform/api.h"

/// Uniform type identifiers as far as image sources have them. They compare without regard to case.
inline constexpr std::string_view kUTTypeGIF = "com.compuserve.gif";
inline constexpr std::string_view kUTTypeImage = "public.image";

/// Whether things of `type` are also of the kind `conformsToType`. A type that is not known
/// conforms to itself only.
PLATFORM_API bool UTTypeConformsTo(std::string_view type, std::string_view conformsToType);
