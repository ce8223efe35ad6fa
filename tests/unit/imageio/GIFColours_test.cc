#include <array>

#include <gtest/gtest.h>

#include "tests/unit/imageio/Pictures.h"

using pictures::draw;
using pictures::frames;
using pictures::indexes;
using pictures::screen;
using pictures::Texts;

namespace {

constexpr std::array<std::uint8_t, 6> blueAndGreen{0, 0, 255, 0, 255, 0};

TEST(GIFColours, WithoutAnyTablePixelsAreOpaqueBlack) {
  GIFBuilder gif(2, 1, {});
  draw(gif, 0, 0, "RG");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"kk"}));
}

TEST(GIFColours, ASecondFrameWithoutAnyTableIsOpaqueBlack) {
  GIFBuilder gif(2, 1, {});
  gif.image({.width = 2, .height = 1, .colours = blueAndGreen}, 2, indexes("RG"));
  draw(gif, 1, 0, "R");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"BG", "Bk"}));
}

TEST(GIFColours, AFramesOwnTableIsForThatFrameOnly) {
  GIFBuilder gif = screen(2, 1);
  gif.image({.width = 1, .height = 1, .colours = blueAndGreen}, 2, indexes("R"));
  draw(gif, 1, 0, "R");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"B.", "BR"}));
}

TEST(GIFColours, AnIndexBeyondTheTableIsOpaqueBlack) {
  GIFBuilder gif = screen(3, 1);
  gif.image({.width = 3, .height = 1}, 3, std::array<std::uint8_t, 3>{4, 7, 2});
  gif.image({.width = 2, .height = 1, .colours = blueAndGreen}, 2, indexes("BG"));
  EXPECT_EQ(frames(gif.trailer()), (Texts{"kkB", "kGB"}));
}

TEST(GIFColours, ATransparentIndexBeyondTheTableIsHonoured) {
  GIFBuilder gif = screen(3, 1);
  draw(gif, 0, 0, "RRR");
  gif.control({.transparentIndex = 6});
  gif.image({.width = 3, .height = 1}, 3, std::array<std::uint8_t, 3>{6, 1, 7});
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RRR", "RGk"}));
}

}  // namespace
