#pragma once

enum class UIFontWeight { kRegular, kSemibold };

/// A font of the system's family; sizes in points.
struct UIFont {
  double pointSize = 17;
  UIFontWeight weight = UIFontWeight::kRegular;
  bool operator==(const UIFont&) const = default;

  static constexpr UIFont systemFontOfSize(double size) { return {size, UIFontWeight::kRegular}; }
  static constexpr UIFont semiboldSystemFontOfSize(double size) {
    return {size, UIFontWeight::kSemibold};
  }
};
