#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/imageio/Pictures.h"

using pictures::draw;
using pictures::frames;
using pictures::screen;
using pictures::Texts;
using pictures::white;

namespace {

constexpr unsigned kKeep = 1;
constexpr unsigned kClear = 2;
constexpr unsigned kPrevious = 3;

TEST(GIFDisposal, RestoringBringsBackWhatWasThereBeforeTheFrame) {
  GIFBuilder gif = screen(3, 1);
  gif.control({.disposal = kKeep});
  draw(gif, 0, 0, "RRR");
  gif.control({.disposal = kPrevious});
  draw(gif, 1, 0, "G");
  gif.control({.disposal = kKeep});
  draw(gif, 2, 0, "B");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RRR", "RGR", "RRB"}));
}

TEST(GIFDisposal, RestoringIsRepeatedFromTheSameCanvas) {
  GIFBuilder gif = screen(3, 1);
  gif.control({.disposal = kKeep});
  draw(gif, 0, 0, "RRR");
  gif.control({.disposal = kPrevious});
  draw(gif, 0, 0, "GG");
  gif.control({.disposal = kPrevious});
  draw(gif, 1, 0, "BB");
  gif.control({.disposal = kPrevious});
  draw(gif, 2, 0, "G");
  gif.control({.disposal = kKeep});
  draw(gif, 0, 0, "W");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RRR", "GGR", "RBB", "RRG", "WRR"}));
}

TEST(GIFDisposal, RestoringTheFirstFrameLeavesAnEmptyCanvas) {
  GIFBuilder gif = screen(2, 1);
  gif.control({.disposal = kPrevious});
  draw(gif, 0, 0, "RR");
  draw(gif, 1, 0, "G");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RR", ".G"}));
}

TEST(GIFDisposal, RestoringWorksUnderAFrameThatCoversEverything) {
  GIFBuilder gif = screen(2, 1);
  draw(gif, 0, 0, "RG");
  gif.control({.disposal = kPrevious});
  draw(gif, 0, 0, "BB");
  gif.control({.disposal = kPrevious});
  draw(gif, 1, 0, "W");
  draw(gif, 0, 0, "W");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RG", "BB", "RW", "WG"}));
}

TEST(GIFDisposal, ClearingAFrameWithATransparentIndexMakesItsRectangleTransparent) {
  GIFBuilder gif = screen(3, 1);
  draw(gif, 0, 0, "RRR");
  gif.control({.disposal = kClear, .transparentIndex = white});
  draw(gif, 1, 0, "GW");
  gif.control({.transparentIndex = white});
  draw(gif, 0, 0, "W");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RRR", "RGR", "R.."}));
}

TEST(GIFDisposal, ClearingAnOpaqueFrameMakesItsRectangleTransparentWhateverTheBackground) {
  GIFBuilder gif = screen(3, 1);
  // The background colour index is the 12th byte of the screen descriptor.
  auto bytes = *gif.data();
  bytes[11] = 1;
  gif.cutTo(0).bytes(bytes);
  gif.control({.disposal = kClear});
  draw(gif, 0, 0, "RR");
  draw(gif, 2, 0, "G");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RR.", "..G"}));
}

TEST(GIFDisposal, ClearingTheWholeCanvasLeavesNothing) {
  GIFBuilder gif = screen(2, 2);
  gif.control({.disposal = kClear, .transparentIndex = white});
  draw(gif, 0, 0, "RR/RW");
  gif.control({.disposal = kClear, .transparentIndex = white});
  draw(gif, 0, 0, "WG/WW");
  draw(gif, 0, 1, "B");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RR/R.", ".G/..", "../B."}));
}

TEST(GIFDisposal, RestoringAfterClearingRestoresTheClearedCanvas) {
  GIFBuilder gif = screen(2, 1);
  gif.control({.disposal = kClear});
  draw(gif, 0, 0, "R");
  gif.control({.disposal = kPrevious});
  draw(gif, 0, 0, "GG");
  draw(gif, 1, 0, "B");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"R.", "GG", ".B"}));
}

TEST(GIFDisposal, FourIsTakenAsThree) {
  GIFBuilder gif = screen(2, 1);
  draw(gif, 0, 0, "RR");
  gif.control({.disposal = 4});
  draw(gif, 0, 0, "G");
  draw(gif, 1, 0, "B");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RR", "GR", "RB"}));
}

TEST(GIFDisposal, FiveToSevenKeepTheFrame) {
  for (const unsigned reserved : {5U, 6U, 7U}) {
    GIFBuilder gif = screen(2, 1);
    draw(gif, 0, 0, "RR");
    gif.control({.disposal = reserved});
    draw(gif, 0, 0, "G");
    draw(gif, 1, 0, "B");
    EXPECT_EQ(frames(gif.trailer()), (Texts{"RR", "GR", "GB"})) << reserved;
  }
}

TEST(GIFDisposal, ZeroKeepsTheFrameWhateverWasBefore) {
  for (const unsigned before : {kClear, kPrevious}) {
    GIFBuilder gif = screen(3, 1);
    gif.control({.disposal = before});
    draw(gif, 0, 0, "R");
    gif.control({.disposal = 0});
    draw(gif, 1, 0, "G");
    gif.control({.disposal = 0});
    draw(gif, 2, 0, "B");
    EXPECT_EQ(frames(gif.trailer()), (Texts{"R..", ".G.", ".GB"})) << before;
  }
}

TEST(GIFDisposal, OfAFrameThatCannotBeDecodedDoesNotHappen) {
  GIFBuilder gif = screen(2, 1);
  draw(gif, 0, 0, "RR");
  gif.control({.disposal = kClear}).descriptor({.width = 2, .height = 1}).bytes({0, 0});
  draw(gif, 1, 0, "G");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RR", "none", "RG"}));
}

}  // namespace
