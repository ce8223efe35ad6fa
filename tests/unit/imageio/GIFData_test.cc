#include <algorithm>
#include <array>

#include <gtest/gtest.h>

#include "tests/unit/imageio/Pictures.h"

using pictures::draw;
using pictures::frames;
using pictures::screen;
using pictures::Texts;

namespace {

// Of a minimum code size of 2.
constexpr unsigned clear = 4;
constexpr unsigned end = 5;

using Codes = std::vector<unsigned>;

/// One frame of 4 x 2 with these codes over a canvas that is all W.
std::string frameOfCodes(const Codes& codes) {
  GIFBuilder gif = screen(4, 2);
  draw(gif, 0, 0, "WWWW/WWWW");
  gif.imageOfCodes({.width = 4, .height = 2}, 2, codes);
  const Texts shown = frames(gif.trailer());
  EXPECT_EQ(shown.size(), 2U);
  return shown.back();
}

/// 256 shades of which index i has i as its blue part.
std::array<std::uint8_t, 768> blues() {
  std::array<std::uint8_t, 768> colours{};
  for (std::size_t i = 0; i < 256; ++i) {
    colours[3 * i + 2] = static_cast<std::uint8_t>(i);
  }
  return colours;
}

std::vector<std::uint8_t> noise(std::size_t count) {
  std::vector<std::uint8_t> result;
  std::uint32_t state = 1;
  for (std::size_t i = 0; i < count; ++i) {
    state = state * 1664525 + 1013904223;
    result.push_back(static_cast<std::uint8_t>(state >> 24));
  }
  return result;
}

/// The colour indexes of the first frame of a GIF made with `blues`.
std::vector<std::uint8_t> shownIndexes(const GIFBuilder& gif) {
  std::vector<std::uint8_t> result;
  const auto pixels = CGImageSource::createWithData(gif.data())->createImageAtIndex(0)->pixels();
  for (const std::uint32_t pixel : pixels->pixels()) {
    result.push_back(static_cast<std::uint8_t>(pixel & 255));
  }
  return result;
}

TEST(GIFData, AMinimumCodeSizeOutsideOneToEightMakesAFrameUndecodable) {
  for (const std::uint8_t size : {0, 9, 10, 11, 12, 13, 255}) {
    GIFBuilder gif = screen(1, 1);
    draw(gif, 0, 0, "R");
    gif.descriptor({.width = 1, .height = 1}).bytes({size}).subBlocks(GIFBuilder::Bytes{0x44, 1});
    draw(gif, 0, 0, "G");
    EXPECT_EQ(frames(gif.trailer()), (Texts{"R", "none", "G"})) << int{size};
  }
}

TEST(GIFData, EveryMinimumCodeSizeFromOneToEightIsDecoded) {
  const auto colours = blues();
  for (unsigned size = 1; size <= 8; ++size) {
    std::vector<std::uint8_t> stored = noise(600);
    for (std::uint8_t& index : stored) {
      index = static_cast<std::uint8_t>(index >> (8 - size));
    }
    GIFBuilder gif(30, 20, colours);
    gif.image({.width = 30, .height = 20}, size, stored);
    EXPECT_EQ(shownIndexes(gif.trailer()), stored) << size;
  }
}

TEST(GIFData, AFullTableStaysInUseUntilAClear) {
  const auto colours = blues();
  const std::vector<std::uint8_t> stored = noise(20000);
  for (const bool clearsFullTable : {false, true}) {
    GIFBuilder gif(200, 100, colours);
    const Codes codes = GIFBuilder::compress(8, stored, clearsFullTable);
    ASSERT_GT(codes.size(), 8192U);
    gif.imageOfCodes({.width = 200, .height = 100}, 8, codes);
    EXPECT_EQ(shownIndexes(gif.trailer()), stored) << clearsFullTable;
  }
}

TEST(GIFData, SubBlocksOfAnySizeGiveTheSamePicture) {
  const auto colours = blues();
  const std::vector<std::uint8_t> stored = noise(900);
  const auto packed = GIFBuilder::pack(8, GIFBuilder::compress(8, stored));
  for (const std::size_t size : {1, 2, 7, 8, 9, 64, 254, 255}) {
    GIFBuilder gif(30, 30, colours);
    gif.descriptor({.width = 30, .height = 30}).bytes({8}).subBlocks(packed, size);
    EXPECT_EQ(shownIndexes(gif.trailer()), stored) << size;
  }
}

TEST(GIFData, NoClearCodeIsNeededAtTheStart) {
  EXPECT_EQ(frameOfCodes({0, 1, 2, 0, 0, 1, 2, 0, end}), "RGBR/RGBR");
}

TEST(GIFData, NoEndCodeIsNeeded) {
  EXPECT_EQ(frameOfCodes({clear, 0, 1, 2, 0, 0, 1, 2, 0}), "RGBR/RGBR");
}

TEST(GIFData, ClearCodesMayBeRepeatedAndComeAnywhere) {
  EXPECT_EQ(frameOfCodes({clear, clear, 0, 1, clear, 2, 0, clear, clear, 0, 1, 2, 0, end}),
            "RGBR/RGBR");
}

TEST(GIFData, ACodeMayStandForTheStringThatItCompletes) {
  // 6 is the last string and its own first index again: RR, then 7: RRR.
  EXPECT_EQ(frameOfCodes({clear, 0, 6, 7, 1, 1, end}), "RRRR/RRGG");
}

TEST(GIFData, OneColourOverAWholeCanvasIsOneGrowingString) {
  GIFBuilder gif = screen(200, 300);
  const std::vector<std::uint8_t> stored(60000, 1);
  gif.image({.width = 200, .height = 300}, 2, stored);
  const auto pixels =
      CGImageSource::createWithData(gif.trailer().data())->createImageAtIndex(0)->pixels();
  EXPECT_EQ(std::ranges::count(pixels->pixels(), 0xFF00FF00), 60000);
}

TEST(GIFData, ACodeThatStandsForNothingYetEndsTheFrameWithThePixelsSoFar) {
  EXPECT_EQ(frameOfCodes({clear, 0, 1, 2, 0, 1, 14, 0, 0, end}), "RGBR/GWWW");
}

TEST(GIFData, AStringRightAfterAClearEndsTheFrameWithThePixelsSoFar) {
  EXPECT_EQ(frameOfCodes({clear, 0, 1, clear, 6, 0, 0, end}), "RGWW/WWWW");
}

TEST(GIFData, AFaultyFrameLeavesTheEarlierAndLaterFramesAsTheyAre) {
  GIFBuilder gif = screen(2, 1);
  draw(gif, 0, 0, "RR");
  gif.imageOfCodes({.width = 2, .height = 1}, 2, Codes{clear, 1, 7});
  draw(gif, 1, 0, "B");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RR", "GR", "GB"}));
}

TEST(GIFData, AnEarlyEndCodeLeavesTheRestUntouched) {
  EXPECT_EQ(frameOfCodes({clear, 0, 1, end}), "RGWW/WWWW");
}

TEST(GIFData, TooFewPixelsInAFirstFrameLeaveTheRestTransparent) {
  GIFBuilder gif = screen(4, 2);
  gif.imageOfCodes({.width = 4, .height = 2}, 2, Codes{clear, 0, 1, 2, 0, 0, end});
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RGBR/R..."}));
}

TEST(GIFData, TooManyPixelsAreIgnored) {
  GIFBuilder gif = screen(4, 2);
  gif.imageOfCodes({.width = 4, .height = 2}, 2,
                   Codes{clear, 0, 1, 2, 0, 0, 1, 2, 0, 3, 3, 3, 3, end});
  draw(gif, 0, 0, "B");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RGBR/RGBR", "BGBR/RGBR"}));
}

TEST(GIFData, DataAfterTheEndCodeIsIgnored) {
  GIFBuilder gif = screen(2, 1);
  auto packed = GIFBuilder::pack(2, Codes{clear, 0, 1, end});
  packed.insert(packed.end(), 600, 0x5A);
  gif.descriptor({.width = 2, .height = 1}).bytes({2}).subBlocks(packed);
  draw(gif, 0, 0, "B");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RG", "BG"}));
}

TEST(GIFData, EmptyImageDataDrawsNothing) {
  GIFBuilder gif = screen(2, 1);
  gif.descriptor({.width = 2, .height = 1}).bytes({2, 0});
  draw(gif, 0, 0, "R");
  gif.descriptor({.width = 2, .height = 1}).bytes({2, 0});
  EXPECT_EQ(frames(gif.trailer()), (Texts{"..", "R.", "R."}));
}

TEST(GIFData, AFrameCutOffByTheEndOfTheFileShowsItsPixelsSoFar) {
  GIFBuilder gif = screen(4, 2);
  draw(gif, 0, 0, "WWWW/WWWW");
  gif.imageOfCodes({.width = 4, .height = 2}, 2, Codes{clear, 0, 1, 2, 0, 0, 1, 2, 0, end});
  // Without the empty sub-block and two of the five bytes of data: the first codes have 3 bits,
  // from the fourth on 4, and 24 bits hold the clear and six colours.
  gif.cutTo(gif.size() - 3);
  EXPECT_EQ(frames(gif), (Texts{"WWWW/WWWW", "RGBR/RGWW"}));
}

TEST(GIFData, TheOnlyFrameCutOffShowsItsRowsSoFar) {
  GIFBuilder gif = screen(1, 8);
  gif.imageOfCodes({.width = 1, .height = 8, .interlaced = true}, 2,
                   Codes{clear, 0, 1, 2, 0, 0, 1, 2, 0, end});
  gif.cutTo(gif.size() - 3);
  // Stored rows 0, 4, 2, 6, 1, 3 of the eight.
  EXPECT_EQ(frames(gif), (Texts{"R/R/B/G/G/./R/."}));
}

TEST(GIFData, EveryPrefixOfAFileKeepsTheFramesThatAreWhole) {
  GIFBuilder gif = screen(2, 2);
  std::vector<std::size_t> ends;
  for (const char* const rows : {"RG/BW", "GG/GG", "BR/RB"}) {
    gif.control({.delay = 3});
    draw(gif, 0, 0, rows);
    ends.push_back(gif.size());
  }
  const Texts whole = frames(gif.trailer());
  const auto bytes = *gif.data();
  for (std::size_t size = 0; size <= bytes.size(); ++size) {
    const auto cut = std::make_shared<const GIFBuilder::Bytes>(
        bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    const Texts shown = frames(cut);
    for (std::size_t i = 0; i < ends.size() && ends[i] <= size; ++i) {
      ASSERT_GT(shown.size(), i) << size;
      EXPECT_EQ(shown[i], whole[i]) << size;
    }
  }
}

}  // namespace
