#pragma once

#include <string>

#include "platform/api.h"

/// Plane geometry in points, y downwards, as doubles (the type of a CGFloat on a 64-bit device).

using CGFloat = double;

struct CGPoint {
  CGFloat x = 0;
  CGFloat y = 0;
  bool operator==(const CGPoint&) const = default;
};

struct CGSize {
  CGFloat width = 0;
  CGFloat height = 0;
  bool operator==(const CGSize&) const = default;
};

struct CGRect {
  CGPoint origin;
  CGSize size;
  bool operator==(const CGRect&) const = default;
};

inline constexpr CGSize CGSizeZero{};
inline constexpr CGRect CGRectZero{};

constexpr CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  return {{x, y}, {width, height}};
}

/// Distances from the four edges of a rectangle, positive inwards.
struct UIEdgeInsets {
  CGFloat top = 0;
  CGFloat left = 0;
  CGFloat bottom = 0;
  CGFloat right = 0;
  bool operator==(const UIEdgeInsets&) const = default;
};

/// "{320, 44}": shortest decimal numbers that read back as the same doubles.
PLATFORM_API std::string NSStringFromCGSize(CGSize size);
