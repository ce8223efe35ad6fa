#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/coregraphics/PixelBuffer.h"
#include "platform/imageio/GIFFrame.h"

/// Where two pictures of one canvas may differ: one stretch in each row. So the area is never more
/// than the canvas, and what is copied of a row is one move.
class GIFChangedRows {
 public:
  GIFChangedRows(std::size_t canvasWidth, std::size_t canvasHeight)
      : width_(canvasWidth), height_(canvasHeight) {}

  void clear();
  /// Rectangles lie within the canvas.
  void add(const GIFRect& rect);
  void addAll();
  /// Takes out what of the rectangle can be taken out without parting a stretch.
  void subtract(const GIFRect& rect);

  /// Returns how many pixels that was.
  std::size_t copy(const PixelBuffer& from, PixelBuffer& to) const;

 private:
  struct Stretch {
    // A canvas is at most 65,535 wide.
    std::uint16_t begin = 0;
    std::uint16_t end = 0;
  };

  std::size_t width_;
  std::size_t height_;
  std::vector<Stretch> rows_;  // of the canvas, from the first time that any changes
  std::size_t top_ = 0;        // rows outside of these two are as they were
  std::size_t bottom_ = 0;
};
