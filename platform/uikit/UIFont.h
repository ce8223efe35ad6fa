#pragma once

#include <cstdint>

#include "platform/api.h"

/// What a text is for, where its size follows the user's choice.
enum class UIFontTextStyle : std::uint8_t { kBody, kSubheadline, kFootnote };

/// A font of the system's family; sizes in points.
struct UIFont {
  double pointSize = 17;
  /// Whether small letters are measured and drawn as capitals.
  bool capitals = false;
  bool operator==(const UIFont&) const = default;

  static constexpr UIFont systemFontOfSize(double size) { return {size}; }
  /// The font of that style in the application's preferred content size. Main thread.
  PLATFORM_API static UIFont preferredFontForTextStyle(UIFontTextStyle style);
};
