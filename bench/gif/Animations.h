#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

/// GIFs like those that the decoder is for, always the same.
namespace animations {

enum class Disposal : unsigned { keep = 1, clear = 2, restorePrevious = 3 };

using Data = std::shared_ptr<const std::vector<std::uint8_t>>;

/// A screen of flat shapes and text-like marks in which a key lights up and a label changes, as
/// partial frames with a transparent index for what stays.
/// With `restorePrevious` every frame but the first is whole and undone again.
Data interface(unsigned width, unsigned height, unsigned frames,
               Disposal disposal = Disposal::keep);

/// A sheet with text-like marks that slides up and covers the lower part more and more. With
/// `clear` every frame is the sheet alone on a whole transparent canvas; else it is drawn at its
/// place over a first frame that stays.
Data sheet(unsigned width, unsigned height, unsigned frames, Disposal disposal);

/// Every frame whole, opaque and different: shades with grain, as a dithered photograph has.
Data photograph(unsigned width, unsigned height, unsigned frames);

/// Frames of 16 x 16 that change a few pixels each.
Data tiny(unsigned frames);

}  // namespace animations
