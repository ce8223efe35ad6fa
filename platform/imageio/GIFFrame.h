#pragma once

#include <cstddef>
#include <cstdint>

/// What happens to a frame's rectangle before the next frame is drawn.
enum class GIFDisposal : std::uint8_t { kKeep, kClear, kRestorePrevious };

/// A rectangle of whole pixels, cut off at the canvas; may be empty.
struct GIFRect {
  std::size_t left = 0;
  std::size_t top = 0;
  std::size_t width = 0;
  std::size_t height = 0;

  std::size_t area() const { return width * height; }
  bool contains(const GIFRect& other) const {
    return left <= other.left && other.left + other.width <= left + width && top <= other.top &&
           other.top + other.height <= top + height;
  }
};

/// One image of a GIF as its descriptor and control extension give it.
struct GIFFrame {
  /// Of the byte with the minimum code size, which the sub-blocks follow.
  std::size_t dataOffset = 0;
  /// Of the colour table that the frame uses, its own or the global one.
  std::size_t colourTableOffset = 0;
  /// Entries in that table; 0 where there is none.
  std::uint16_t colourCount = 0;

  // In pixels of the canvas; may reach over its edges.
  std::uint16_t left = 0;
  std::uint16_t top = 0;
  std::uint16_t width = 0;
  std::uint16_t height = 0;

  /// Hundredths of a second; has a meaning only with a control extension.
  std::uint16_t delay = 0;
  std::uint8_t transparentIndex = 0;
  GIFDisposal disposal = GIFDisposal::kKeep;
  bool hasControlExtension = false;
  bool hasTransparency = false;
  bool isInterlaced = false;
  bool hasOwnColourTable = false;
  /// False where the data is needed but cannot be read at all; such a frame draws nothing and
  /// disposes of nothing.
  bool isDecodable = false;
};
