#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/coregraphics/PixelBuffer.h"

/// A picture as bytes R, G, B, A for each pixel, colours not premultiplied, transparent pixels
/// 0,0,0,0.
class StraightPixels {
 public:
  explicit StraightPixels(const PixelBuffer& pixels);

  /// SHA-256 of the bytes in hexadecimal.
  std::string checksum() const;

  /// False if the file cannot be written.
  bool writePNG(const std::string& path) const;

 private:
  std::size_t width_;
  std::size_t height_;
  std::vector<std::uint8_t> bytes_;
};
