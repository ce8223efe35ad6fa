#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

#include "platform/coregraphics/PixelBuffer.h"
#include "platform/imageio/GIFFrame.h"

/// Which pixels of a canvas may not be transparent, one bit each, so that what is clear is not
/// cleared again however often a file says so.
class GIFDrawnPixels {
 public:
  /// Of a canvas that is transparent, or of which nothing is known. Null if there is no memory.
  static std::unique_ptr<GIFDrawnPixels> create(std::size_t width, std::size_t height,
                                                bool isTransparent);

  /// Something is drawn on these pixels of one row.
  void add(std::size_t row, std::size_t left, std::size_t count);

  /// Makes a rectangle of the canvas transparent. Returns how many pixels were written.
  std::size_t clear(const GIFRect& rect, PixelBuffer& canvas);

 private:
  GIFDrawnPixels(std::size_t wordsInRow, std::unique_ptr<std::uint64_t[]> words)
      : wordsInRow_(wordsInRow), words_(std::move(words)) {}

  std::size_t wordsInRow_;
  std::unique_ptr<std::uint64_t[]> words_;
  // Rows outside of these two are transparent.
  std::size_t top_ = 0;
  std::size_t bottom_ = 0;
};
