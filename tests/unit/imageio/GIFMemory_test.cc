#include <gtest/gtest.h>

#include "tests/support/AllocationMeter.h"
#include "tests/unit/imageio/Pictures.h"

namespace {

constexpr unsigned frameCount = 10000;

CGImageSource::Data manyFrames() {
  GIFBuilder gif = pictures::screen(16, 16);
  for (unsigned i = 0; i < frameCount; ++i) {
    gif.control({.disposal = 1, .delay = 2});
    pictures::draw(gif, i % 14, i % 13, "RG/BR");
  }
  return gif.trailer().data();
}

TEST(GIFMemory, CountingFramesTakesEightBytesForEach) {
  const CGImageSource::Data data = manyFrames();
  allocationmeter::reset();
  const auto source = CGImageSource::createWithData(data);
  EXPECT_EQ(source->count(), frameCount);
  // Beside the decoder's tables: what the list had while it grew counts as well, and its reserve.
  constexpr std::size_t decoder = std::size_t{48} << 10;
  EXPECT_LT(allocationmeter::total(), decoder + std::size_t{4} * 8 * frameCount);
}

TEST(GIFMemory, PlayingAFrameTakesAPictureAndALoan) {
  const auto source = CGImageSource::createWithData(manyFrames());
  source->createImageAtIndex(0)->pixels();
  allocationmeter::reset();
  for (std::size_t i = 1; i < source->count(); ++i) {
    source->createImageAtIndex(i)->pixels();
  }
  constexpr std::size_t picture = sizeof(CGImage) + 32;
  constexpr std::size_t loan = 96;
  EXPECT_LT(allocationmeter::total(), (picture + loan) * frameCount);
}

TEST(GIFMemory, AFrameThatCannotRememberWhatItCoversIsNotDrawnUntilItCan) {
  constexpr unsigned side = 64;
  constexpr unsigned cover = 32;
  GIFBuilder gif = pictures::screen(side, side);
  gif.image({.width = side, .height = side}, 2, std::vector<std::uint8_t>(side * side, 1));
  gif.control({.disposal = 3});
  gif.image({.left = 8, .top = 8, .width = cover, .height = cover}, 2,
            std::vector<std::uint8_t>(cover * cover, 2));
  pictures::draw(gif, 0, 0, "R");
  const auto data = gif.trailer().data();
  const auto expected = pictures::frames(data);

  const auto source = CGImageSource::createWithData(data);
  source->createImageAtIndex(0)->pixels();
  {
    const allocationmeter::Limit limit(cover * cover * sizeof(std::uint32_t) - 1);
    EXPECT_EQ(source->createImageAtIndex(1)->pixels(), nullptr);
  }
  EXPECT_EQ(pictures::text(source->createImageAtIndex(1)), expected[1]);
  EXPECT_EQ(pictures::text(source->createImageAtIndex(2)), expected[2]);
}

}  // namespace
