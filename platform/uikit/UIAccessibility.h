#pragma once

#include "platform/api.h"

/// Whether the user wants things to stand still that would move by themselves. Main thread.
PLATFORM_API bool UIAccessibilityIsReduceMotionEnabled();

/// For the host. What moves already goes on.
PLATFORM_API void UIAccessibilitySetReduceMotionEnabled(bool enabled);
