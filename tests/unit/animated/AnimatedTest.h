#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <vector>

#include "animated/FLAnimatedImage.h"
#include "headless/drainAllQueues.h"
#include "tests/support/GIFBuilder.h"
#include "tests/support/PaneTest.h"

/// A test over animated images: GIFs of any size and length whose frames differ in their top left
/// pixel, on a clock and a screen moved by hand.
class AnimatedTest : public PaneTest {
 protected:
  static constexpr std::array<std::uint8_t, 12> kColours{255, 0, 0,   0,   255, 0,
                                                         0,   0, 255, 255, 255, 255};

  struct GIF {
    unsigned width = 100;
    unsigned height = 100;
    /// Hundredths of a second, one a frame; nothing for a frame that says nothing.
    std::vector<std::optional<unsigned>> delays;
    /// Index of a frame that cannot be decoded.
    std::optional<std::size_t> faulty = std::nullopt;
    bool allFaulty = false;
  };

  static std::shared_ptr<NSData> data(const GIF& gif) {
    GIFBuilder builder(gif.width, gif.height, kColours);
    for (std::size_t i = 0; i < gif.delays.size(); ++i) {
      if (gif.delays[i]) {
        builder.control({.delay = *gif.delays[i]});
      }
      const bool isFaulty = gif.allFaulty || gif.faulty == i;
      const std::array<std::uint8_t, 1> pixel{static_cast<std::uint8_t>(i % 4)};
      // No decoder takes codes of 9 bits to begin with.
      builder.image({.width = 1, .height = 1}, isFaulty ? 9 : 2, pixel);
    }
    builder.trailer();
    return NSData::dataWithBytes(*builder.data());
  }

  static std::shared_ptr<FLAnimatedImage> make(const GIF& gif) {
    return FLAnimatedImage::animatedImageWithGIFData(data(gif));
  }

  /// `count` frames of a tenth of a second.
  static GIF frames(std::size_t count, unsigned width = 100, unsigned height = 100) {
    return {.width = width,
            .height = height,
            .delays = std::vector<std::optional<unsigned>>(count, 10)};
  }

  /// An animation of 12 frames, of which 5 may be kept.
  static GIF twelveFramesOfWhichFiveAreKept() { return frames(12, 1024, 256); }

  static std::uint32_t firstPixel(const UIImage& image) {
    return image.CGImage()->pixels()->pixels().front();
  }

  /// Plays nothing, but asks for that frame and lets it come.
  static std::shared_ptr<UIImage> fetch(FLAnimatedImage& image, NSUInteger index) {
    image.imageLazilyCachedAtIndex(index);
    drainAllQueues();
    return image.imageLazilyCachedAtIndex(index);
  }

  void advance(double seconds) {
    clock->advance(seconds);
    drainAllQueues();
  }
};
