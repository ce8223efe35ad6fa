#include <array>

#include <gtest/gtest.h>

#include "tests/unit/imageio/Pictures.h"

using pictures::draw;
using pictures::frames;
using pictures::indexes;
using pictures::screen;
using pictures::Texts;
using pictures::white;

namespace {

/// The rows of an image in the order in which an interlaced one stores them.
std::vector<std::size_t> interlacedOrder(std::size_t height) {
  std::vector<std::size_t> order;
  constexpr std::array<std::array<std::size_t, 2>, 4> passes{{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
  for (const auto& [start, step] : passes) {
    for (std::size_t row = start; row < height; row += step) {
      order.push_back(row);
    }
  }
  return order;
}

TEST(GIFPlacement, AFirstFrameSmallerThanTheCanvasLeavesTheRestTransparent) {
  GIFBuilder gif = screen(3, 2);
  draw(gif, 1, 1, "R");
  EXPECT_EQ(frames(gif.trailer()), (Texts{".../.R."}));
}

TEST(GIFPlacement, AFrameIsCutOffAtTheRightAndBottomEdge) {
  GIFBuilder gif = screen(2, 2);
  draw(gif, 1, 1, "RG/BW");
  draw(gif, 0, 1, "GGG");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"../.R", "../GG"}));
}

TEST(GIFPlacement, AnInterlacedFrameIsCutOffAfterItsRowsAreInOrder) {
  GIFBuilder gif = screen(1, 3);
  // Five rows stored as 0, 4, 2, 1, 3.
  gif.image({.left = 0, .top = 1, .width = 1, .height = 5, .interlaced = true}, 2,
            indexes("RGBWG"));
  EXPECT_EQ(frames(gif.trailer()), (Texts{"./R/W"}));
}

TEST(GIFPlacement, AFrameWhollyOutsideCountsAndDrawsNothing) {
  GIFBuilder gif = screen(2, 1);
  draw(gif, 0, 0, "RR");
  gif.control({.disposal = 2, .delay = 7});
  draw(gif, 2, 0, "GG");
  gif.control({.disposal = 3});
  draw(gif, 0, 1, "GG");
  draw(gif, 0, 0, "B");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RR", "RR", "RR", "BR"}));
  EXPECT_EQ(pictures::delays(gif), (std::vector<double>{-1, 0.07, 0, -1}));
}

TEST(GIFPlacement, TheCanvasIsNotEnlargedForTheFirstFrame) {
  GIFBuilder gif = screen(2, 1);
  draw(gif, 0, 0, "RGB/WWW");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RG"}));
}

TEST(GIFPlacement, ALaterFrameLargerThanTheCanvasIsCutOff) {
  GIFBuilder gif = screen(2, 1);
  draw(gif, 0, 0, "RR");
  gif.control({.transparentIndex = white});
  draw(gif, 0, 0, "WGB/GGG");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RR", "RG"}));
}

TEST(GIFPlacement, AFrameOfZeroWidthOrHeightDrawsNothingAndKeepsItsDelay) {
  for (const auto& [width, height] : {std::pair{0U, 1U}, {1U, 0U}, {0U, 0U}}) {
    GIFBuilder gif = screen(1, 1);
    gif.control({.delay = 5}).image({.width = width, .height = height}, 2, {});
    EXPECT_EQ(frames(gif.trailer()), (Texts{"."}));
    EXPECT_EQ(pictures::delays(gif), (std::vector<double>{0.05}));
  }
}

TEST(GIFPlacement, AFrameOfNoAreaNeedsNoDataAndKeepsItsDelay) {
  for (const auto& [width, height] : {std::pair{0U, 1U}, {1U, 0U}, {0U, 0U}}) {
    // No minimum code size that there is, and data for more than there is room for.
    for (const std::uint8_t codeSize : {0, 9, 12, 255}) {
      GIFBuilder gif = screen(2, 1);
      gif.control({.delay = 4});
      draw(gif, 0, 0, "RB");
      gif.control({.disposal = 2, .delay = 5}).descriptor({.width = width, .height = height});
      gif.bytes({codeSize}).subBlocks(GIFBuilder::Bytes{0x44, 1, 0xFF});
      gif.control({.delay = 6});
      draw(gif, 1, 0, "G");
      EXPECT_EQ(frames(gif.trailer()), (Texts{"RB", "RB", "RG"})) << int{codeSize};
      EXPECT_EQ(pictures::delays(gif), (std::vector<double>{0.04, 0.05, 0.06}));
    }
  }
}

TEST(GIFPlacement, AFrameOfNoAreaWhoseDataIsMissingIsTheLast) {
  const GIFBuilder::Image nothing{.width = 0, .height = 0, .colours = pictures::colours};
  GIFBuilder gif = screen(1, 1);
  draw(gif, 0, 0, "R");
  gif.control({.delay = 5}).descriptor({.width = 0, .height = 3});
  EXPECT_EQ(frames(gif), (Texts{"R", "R"}));
  EXPECT_EQ(pictures::delays(gif), (std::vector<double>{-1, 0.05}));
  gif.bytes({0, 0}).descriptor(nothing);
  for (std::size_t cut = 0; cut <= pictures::colours.size(); ++cut) {
    EXPECT_EQ(frames(gif), (Texts{"R", "R", "R"})) << cut;
    gif.cutTo(gif.size() - 1);
  }
}

TEST(GIFPlacement, AFirstFrameOfNoAreaWithoutDataIsAnEmptyCanvas) {
  GIFBuilder gif = screen(2, 1);
  gif.descriptor({.width = 0, .height = 1}).bytes({0, 0});
  draw(gif, 0, 0, "R");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"..", "R."}));
}

TEST(GIFPlacement, AFrameOfZeroSizeBetweenOthersShowsTheOneBefore) {
  GIFBuilder gif = screen(2, 1);
  draw(gif, 0, 0, "RR");
  gif.image({.width = 0, .height = 0}, 2, {});
  draw(gif, 1, 0, "G");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RR", "RR", "RG"}));
}

TEST(GIFPlacement, ACanvasWithoutAPixelIsNoImage) {
  for (const auto& [width, height] : {std::pair{0U, 0U}, {0U, 2U}, {2U, 0U}}) {
    GIFBuilder gif = screen(width, height);
    draw(gif, 0, 0, "RR");
    EXPECT_EQ(CGImageSource::createWithData(gif.trailer().data()), nullptr);
  }
}

TEST(GIFPlacement, InterlacedRowsOfAnyHeightComeInOrder) {
  for (unsigned height = 1; height <= 17; ++height) {
    std::string expected;
    for (unsigned row = 0; row < height; ++row) {
      expected += std::string(row == 0 ? "" : "/") + "RGB"[row % 3] + "GBR"[row / 3 % 3];
    }
    std::string stored;
    for (const std::size_t row : interlacedOrder(height)) {
      stored += expected.substr(3 * row, 2);
    }
    GIFBuilder gif = screen(2, height);
    gif.image({.width = 2, .height = height, .interlaced = true}, 2, indexes(stored));
    EXPECT_EQ(frames(gif.trailer()), (Texts{expected})) << height;
  }
}

TEST(GIFPlacement, TransparentPixelsLeaveWhatIsUnderThem) {
  // Long enough for whole groups of pixels: all opaque, all transparent, mixed, and a rest.
  const std::string under = "RRRRRRRRRRRRRRRRRRRRRRRRRRRRR";
  const std::string over_ = "GGGGGGGGWWWWWWWWGWGWBBWGWWGWB";
  const std::string shown = "GGGGGGGGRRRRRRRRGRGRBBRGRRGRB";
  GIFBuilder gif = screen(29, 1);
  draw(gif, 0, 0, under);
  gif.control({.transparentIndex = white});
  draw(gif, 0, 0, over_);
  EXPECT_EQ(frames(gif.trailer()), (Texts{under, shown}));
}

}  // namespace
