#include <atomic>
#include <thread>

#include <gtest/gtest.h>

#include "platform/imageio/GIFCompositor.h"
#include "tests/unit/imageio/Pictures.h"

// How many pixels are worked on for small files that say how much is to be done.

namespace {

constexpr unsigned side = 4096;
constexpr std::size_t canvas = std::size_t{side} * side;
constexpr unsigned frameCount = 4000;
constexpr unsigned clears = 2;
constexpr unsigned restoresPrevious = 3;

/// Two pixels of data, however large the frame.
void addShort(GIFBuilder& gif, const GIFBuilder::Image& image) {
  gif.descriptor(image).bytes({2, 2, 0x44, 0x01, 0});
}

GIFCompositor compositorOf(GIFBuilder& gif) {
  const auto data = gif.trailer().data();
  return {data, *GIFStructure::read(*data)};
}

TEST(GIFWork, WhatIsClearIsNotClearedAgain) {
  // One row less than the canvas: no frame is one to start from.
  GIFBuilder gif = pictures::screen(side, side);
  for (unsigned i = 0; i < frameCount; ++i) {
    gif.control({.disposal = clears});
    gif.descriptor({.width = side, .height = side - 1}).bytes({2, 1, 0x44, 0});
  }
  EXPECT_LT(gif.size(), 100'000U);
  GIFCompositor compositor = compositorOf(gif);
  ASSERT_NE(compositor.makePixels(frameCount - 1), nullptr);
  EXPECT_LE(compositor.work(), canvas + 1000);
}

TEST(GIFWork, ClearsBetweenDrawsOfAPixelClearThatPixel) {
  GIFBuilder gif = pictures::screen(side, side);
  for (unsigned i = 0; i < frameCount / 2; ++i) {
    addShort(gif, {.left = i % side, .top = i % side, .width = 1, .height = 1});
    gif.control({.disposal = clears});
    gif.descriptor({.left = 1, .top = 1, .width = side - 2, .height = side - 2}).bytes({2, 0});
  }
  GIFCompositor compositor = compositorOf(gif);
  ASSERT_NE(compositor.makePixels(frameCount - 1), nullptr);
  EXPECT_LE(compositor.work(), canvas + 4 * frameCount);
}

TEST(GIFWork, ClearsBetweenFramesOfTheWholeCanvasClearWhatTheirDataDrew) {
  GIFBuilder gif = pictures::screen(side, side);
  for (unsigned i = 0; i < frameCount / 2; ++i) {
    gif.control({.transparentIndex = pictures::white});
    addShort(gif, {.width = side, .height = side, .interlaced = i % 2 == 0});
    gif.control({.disposal = clears});
    addShort(gif, {.width = side, .height = side - 1});
  }
  GIFCompositor compositor = compositorOf(gif);
  ASSERT_NE(compositor.makePixels(frameCount - 1), nullptr);
  EXPECT_LE(compositor.work(), canvas + 6 * frameCount);
}

TEST(GIFWork, WhatIsUndoneOnTheWayIsNotDrawn) {
  GIFBuilder gif = pictures::screen(side, side);
  for (unsigned i = 0; i < frameCount; ++i) {
    gif.control({.disposal = restoresPrevious});
    addShort(gif, {.width = side, .height = side});
  }
  GIFCompositor compositor = compositorOf(gif);
  ASSERT_NE(compositor.makePixels(frameCount - 1), nullptr);
  // The empty canvas, and what is to be brought back.
  EXPECT_LE(compositor.work(), 2 * canvas + 10);
}

TEST(GIFWork, FramesShortOfDataAreTriedOnceEach) {
  GIFBuilder gif = pictures::screen(side, side);
  for (unsigned i = 0; i < frameCount; ++i) {
    addShort(gif, {.width = side, .height = side});
  }
  GIFCompositor compositor = compositorOf(gif);
  ASSERT_NE(compositor.makePixels(frameCount - 1), nullptr);
  EXPECT_LE(compositor.work(), canvas + std::size_t{2} * 2 * frameCount);
}

TEST(GIFWork, AWholeFrameBeforeOnesShortOfDataIsStartedFrom) {
  constexpr unsigned small = 100;
  GIFBuilder gif = pictures::screen(small, small);
  for (unsigned i = 0; i < 50; ++i) {
    gif.image({.width = small, .height = small}, 2,
              std::vector<std::uint8_t>(small * small, i % 4));
  }
  addShort(gif, {.width = small, .height = small});
  GIFCompositor compositor = compositorOf(gif);
  const auto pixels = compositor.makePixels(50);
  ASSERT_NE(pixels, nullptr);
  EXPECT_EQ(pixels->pixels()[small * small - 1], 0xFF00FF00U);
  EXPECT_LE(compositor.work(), small * small + 10U);
}

TEST(GIFWork, AFrameInOrderIsWorkForItsOwnPixels) {
  GIFBuilder gif = pictures::screen(side, side);
  pictures::draw(gif, 0, 0, "R");
  for (unsigned i = 1; i < 100; ++i) {
    gif.control({.disposal = i % 4});
    pictures::draw(gif, 2 * i, 3 * i, "GB/BG");
  }
  GIFCompositor compositor = compositorOf(gif);
  compositor.makePixels(0);
  const std::size_t before = compositor.work();
  for (std::size_t i = 1; i < 100; ++i) {
    ASSERT_NE(compositor.makePixels(i), nullptr);
  }
  // Decoded, saved and brought back.
  EXPECT_LE(compositor.work() - before, 100U * 3 * 4);
}

TEST(GIFWork, AFrameIsHadWhileALongJumpIsUnderWay) {
  // Each frame but the first is decoded wholly for the last one.
  constexpr unsigned count = 24;
  GIFBuilder gif = pictures::screen(side, side);
  const std::vector<unsigned> codes = GIFBuilder::compress(2, std::vector<std::uint8_t>(canvas, 1));
  const GIFBuilder::Bytes packed = GIFBuilder::pack(2, codes);
  addShort(gif, {.width = 1, .height = 1});
  for (unsigned i = 0; i < count; ++i) {
    gif.control({.transparentIndex = pictures::white});
    gif.descriptor({.width = side, .height = side}).bytes({2}).subBlocks(packed);
  }
  GIFCompositor compositor = compositorOf(gif);
  std::atomic<bool> isThere = false;
  std::shared_ptr<const PixelBuffer> last;
  std::thread jump([&] {
    last = compositor.makePixels(count);
    isThere = true;
  });
  bool wasUnderWay = false;
  while (!isThere) {
    const std::size_t work = compositor.work();
    wasUnderWay = wasUnderWay || (work > 4 * canvas && work < count * canvas);
    const auto first = compositor.makePixels(0);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->pixels()[canvas - 1], 0U);
  }
  jump.join();
  ASSERT_NE(last, nullptr);
  EXPECT_EQ(last->pixels()[canvas - 1], 0xFF00FF00U);
  EXPECT_TRUE(wasUnderWay);
}

}  // namespace
