#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

/// GIFs like those that the decoder is for, always the same.
namespace animations {

using Data = std::shared_ptr<const std::vector<std::uint8_t>>;

/// A screen of flat shapes and text-like marks in which a key lights up and a label changes, as
/// partial frames with a transparent index for what stays.
Data interface(unsigned width, unsigned height, unsigned frames);

/// Every frame whole, opaque and different: shades with grain, as a dithered photograph has.
Data photograph(unsigned width, unsigned height, unsigned frames);

/// Frames of 16 x 16 that change a few pixels each.
Data tiny(unsigned frames);

}  // namespace animations
