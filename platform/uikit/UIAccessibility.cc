#include "platform/uikit/UIAccessibility.h"

namespace {

bool& reduceMotion() {
  static bool enabled = false;
  return enabled;
}

}  // namespace

bool UIAccessibilityIsReduceMotionEnabled() {
  return reduceMotion();
}

void UIAccessibilitySetReduceMotionEnabled(bool enabled) {
  reduceMotion() = enabled;
}
