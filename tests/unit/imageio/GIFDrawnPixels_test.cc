#include "platform/imageio/GIFDrawnPixels.h"

#include <algorithm>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace {

// A row is more than two words of bits.
constexpr std::size_t width = 150;
constexpr std::size_t height = 6;
constexpr GIFRect whole{.left = 0, .top = 0, .width = width, .height = height};

std::shared_ptr<PixelBuffer> canvasOf(std::uint32_t pixel) {
  auto canvas = PixelBuffer::create(width, height);
  std::ranges::fill(canvas->pixels(), pixel);
  return canvas;
}

TEST(GIFDrawnPixels, WhatIsTransparentIsNotCleared) {
  const auto canvas = canvasOf(0);
  const auto drawn = GIFDrawnPixels::create(width, height, true);
  EXPECT_EQ(drawn->clear(whole, *canvas), 0U);
}

TEST(GIFDrawnPixels, WhatIsNotKnownIsClearedOnce) {
  const auto canvas = canvasOf(7);
  const auto drawn = GIFDrawnPixels::create(width, height, false);
  EXPECT_EQ(drawn->clear(whole, *canvas), width * height);
  EXPECT_TRUE(std::ranges::all_of(canvas->pixels(), [](std::uint32_t p) { return p == 0; }));
  EXPECT_EQ(drawn->clear(whole, *canvas), 0U);
}

TEST(GIFDrawnPixels, ExactlyWhatIsDrawnIsCleared) {
  std::mt19937 random(1);
  const auto below = [&](std::size_t limit) { return random() % limit; };
  const auto canvas = canvasOf(0);
  std::vector<std::uint32_t> model(width * height, 0);
  const auto drawn = GIFDrawnPixels::create(width, height, true);
  for (int step = 0; step < 3000; ++step) {
    const std::size_t left = below(width);
    const std::size_t count = below(width - left + 1);
    const std::size_t top = below(height);
    if (below(3) != 0) {
      drawn->add(top, left, count);
      std::fill_n(canvas->pixels().begin() + static_cast<std::ptrdiff_t>(top * width + left), count,
                  7);
      std::fill_n(model.begin() + static_cast<std::ptrdiff_t>(top * width + left), count, 7);
      continue;
    }
    const bool isWide = below(2) == 0;
    const GIFRect rect{.left = isWide ? 0 : left,
                       .top = top,
                       .width = isWide ? width : count,
                       .height = below(height - top + 1)};
    std::size_t expected = 0;
    for (std::size_t y = rect.top; y < rect.top + rect.height; ++y) {
      for (std::size_t x = rect.left; x < rect.left + rect.width; ++x) {
        expected += model[y * width + x] == 7 ? 1 : 0;
        model[y * width + x] = 0;
      }
    }
    ASSERT_EQ(drawn->clear(rect, *canvas), expected) << step;
    ASSERT_TRUE(std::ranges::equal(canvas->pixels(), model)) << step;
  }
}

}  // namespace
