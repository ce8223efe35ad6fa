#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "platform/imageio/GIFCodeReader.h"

/// Undoes the LZW compression of one image at a time into colour indexes.
///
/// Every string that a code stands for is a stretch of what has been written already: the string of
/// a new code is the last one and the byte that follows it in the output. So the table holds a
/// place and a length for each code, and writing a string is one copy. That needs all indexes of
/// the image in memory at once, one byte a pixel; the memory is kept for the next image.
class GIFDecompressor {
 public:
  /// Starts with an image of `pixelCount` indexes (at most PixelBuffer::kMaximumPixelCount) whose
  /// data begins at the minimum code size, 1 to 8. False if there is no memory.
  bool begin(std::span<const std::uint8_t> data, std::size_t pixelCount);

  /// Goes on until `count` indexes are there, or the data ends, says that it ends, or is at fault.
  /// Returns how many are there: at least `count`, or fewer if there will never be more.
  std::size_t decode(std::size_t count);

  /// The indexes so far, valid until the next begin().
  const std::uint8_t* indexes() const { return output_.get() + kLiteralCount; }

 private:
  static constexpr std::size_t kLiteralCount = 256;
  static constexpr std::size_t kTableSize = 4096;
  static constexpr unsigned kMaximumWidth = 12;

  struct String {
    std::uint32_t start;
    std::uint32_t length;
  };

  std::array<String, kTableSize> table_;
  unsigned literalsInTable_ = 0;
  // The literals, one byte each, then the indexes, then room for the end of the longest string.
  std::unique_ptr<std::uint8_t[]> output_;
  std::size_t capacity_ = 0;

  GIFCodeReader reader_;
  std::size_t written_ = 0;  // end of the indexes so far, as a place in output_
  String last_{};
  unsigned clearCode_ = 0;
  unsigned nextCode_ = 0;
  unsigned width_ = 0;
  std::size_t pixelCount_ = 0;
  bool ended_ = false;
};
