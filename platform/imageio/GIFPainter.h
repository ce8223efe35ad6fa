#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/imageio/GIFDecompressor.h"
#include "platform/imageio/GIFDrawnPixels.h"
#include "platform/imageio/GIFStructure.h"

/// Decodes the frames of one GIF and draws each into its rectangle of a canvas, whose pixels are as
/// in PixelBuffer. Pixels that the data does not give (it ends early or is at fault) stay as they
/// are. An index without an entry in its colour table is opaque black.
class GIFPainter {
 public:
  enum class Mode {
    kOver,     ///< transparent pixels leave the canvas as it is
    kReplace,  ///< transparent pixels make the canvas transparent
  };
  enum class Result {
    kComplete,
    kPartial,   ///< the data did not give all visible pixels
    kNoMemory,  ///< nothing was drawn
  };

  /// Both must outlive the painter.
  GIFPainter(std::span<const std::uint8_t> data, const GIFStructure& structure);

  /// Draws the frame of that index, which is decodable, and tells `drawn`, if there is one, where.
  Result paint(std::size_t index, std::span<std::uint32_t> canvas, Mode mode,
               GIFDrawnPixels* drawn);

  /// All pixels that were decoded so far, those outside of the canvas as well.
  std::size_t decodedPixelCount() const { return decodedPixelCount_; }

 private:
  using Palette = std::array<std::uint32_t, 256>;

  Palette readPalette(std::size_t offset, std::size_t count) const;
  /// The frame's colours; `own` is where they are put if they are not those of all frames.
  const Palette& paletteFor(const GIFFrame& frame, Mode mode, Palette& own) const;

  std::span<const std::uint8_t> data_;
  const GIFStructure& structure_;
  Palette globalPalette_;
  GIFDecompressor decompressor_;
  std::size_t decodedPixelCount_ = 0;
};
