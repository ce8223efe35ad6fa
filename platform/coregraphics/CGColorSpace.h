#pragma once

#include <cstddef>

/// The device's RGB, the only colour space of this platform: CGColorSpaceCreateDeviceRGB.
class CGColorSpace {
 public:
  static constexpr CGColorSpace createDeviceRGB() { return {}; }

  /// Colour components, alpha not counted: CGColorSpaceGetNumberOfComponents.
  constexpr std::size_t numberOfComponents() const { return 3; }

 private:
  constexpr CGColorSpace() = default;
};
