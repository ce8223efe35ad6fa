#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/api.h"

/// The colours that are the system's own and not a page's. A host shows them as its surroundings
/// ask for; every other colour is shown as it was given.
enum class UISystemColor : std::uint8_t {
  kNone,
  kLabel,
  kSecondaryLabel,
  kHeaderLabel,
  kRowBackground,
  kTint,
  kRed,
};

/// A colour in the device's RGB space, each component from 0 to 1.
struct UIColor {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 1;
  /// Which of the system's colours this is; its components are then those in light surroundings.
  UISystemColor system = UISystemColor::kNone;
  bool operator==(const UIColor&) const = default;

  static constexpr UIColor blackColor() { return {0, 0, 0, 1}; }
  static constexpr UIColor whiteColor() { return {1, 1, 1, 1}; }
  static constexpr UIColor redColor() { return {1, 0, 0, 1}; }
  static constexpr UIColor grayColor() { return {0.5, 0.5, 0.5, 1}; }
  static constexpr UIColor lightGrayColor() { return {2.0 / 3, 2.0 / 3, 2.0 / 3, 1}; }

  /// The system's own colours: of texts on rows, and of the rows themselves.
  static constexpr UIColor labelColor() { return {0, 0, 0, 1, UISystemColor::kLabel}; }
  static constexpr UIColor rowBackgroundColor() {
    return {1, 1, 1, 1, UISystemColor::kRowBackground};
  }

  /// The colour that a resource names ("red", "white", "black", "gray", "lightGray", "blue",
  /// "green", "orange"); nothing for a name that is not known.
  PLATFORM_API static std::optional<UIColor> named(std::string_view name);
};
