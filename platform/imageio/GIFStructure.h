#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/imageio/GIFFrame.h"

/// The blocks of a GIF 87a or 89a file (CompuServe, "Graphics Interchange Format", version 89a,
/// 1990), found without decoding any image data. Takes one GIFFrame of memory for each image of the
/// file.
///
/// Where files in the wild and the format disagree:
/// - The canvas is the logical screen and is never enlarged. One without a pixel, or with more than
///   PixelBuffer::maximumPixelCount, makes the file no image, and so does an unknown version or a
///   file without a single whole image descriptor.
/// - Reading stops, and the frames so far stay, at the trailer, the end of the data, or anything
/// that is
///   no block.
/// - Control extensions are honoured in both versions. The last one before an image counts, whole;
/// a
///   comment or application extension in between does not part them; a plain text extension uses it
///   up. One that is not 4 bytes long is passed over.
/// - Disposal 4, which is reserved, is taken as 3; 5 to 7 as none.
/// - A frame is undecodable if the file ends before its first byte of data, if its minimum code
///   size is not 1 to 8, or if it has more than PixelBuffer::maximumPixelCount pixels. One of no
///   area needs no data: it counts, with its delay, and draws nothing.
/// - Frames are counted up to `maximumCompositedPixelCount` pixels of canvas, which bounds the time
/// of
///   one pass over any file.
struct GIFStructure {
  static constexpr std::size_t maximumCompositedPixelCount = std::size_t{1} << 36;

  std::size_t width = 0;
  std::size_t height = 0;
  std::size_t globalColourTableOffset = 0;
  std::uint16_t globalColourCount = 0;
  std::vector<GIFFrame> frames;

  /// Nothing if the data makes no image.
  static std::optional<GIFStructure> read(std::span<const std::uint8_t> data);
};
