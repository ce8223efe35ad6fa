#include <gtest/gtest.h>

#include "platform/imageio/UTType.h"
#include "tests/unit/imageio/Pictures.h"

using pictures::delays;
using pictures::draw;
using pictures::frames;
using pictures::screen;
using pictures::Texts;
using pictures::white;

namespace {

using Delays = std::vector<double>;

CGImageSource::Data bytes(std::initializer_list<std::uint8_t> list) {
  return std::make_shared<const std::vector<std::uint8_t>>(list);
}

TEST(GIFStructure, WhatIsNoGIFMakesNoSource) {
  EXPECT_EQ(CGImageSource::createWithData(nullptr), nullptr);
  EXPECT_EQ(CGImageSource::createWithData(bytes({})), nullptr);
  EXPECT_EQ(CGImageSource::createWithData(
                bytes({0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A, 0, 0, 0, 13, 'I', 'H'})),
            nullptr);
  EXPECT_EQ(CGImageSource::createWithData(bytes({'G', 'I', 'F', '8', '9', 'a'})), nullptr);
}

TEST(GIFStructure, AFileWithoutAnImageMakesNoSource) {
  EXPECT_EQ(CGImageSource::createWithData(screen(2, 2).trailer().data()), nullptr);
  EXPECT_EQ(CGImageSource::createWithData(screen(2, 2).control({}).trailer().data()), nullptr);
}

TEST(GIFStructure, AnUnknownVersionIsRefused) {
  for (const char* const signature : {"GIF99x", "GIF88a", "gif89a", "JIF89a"}) {
    GIFBuilder gif = screen(1, 1, signature);
    draw(gif, 0, 0, "R");
    EXPECT_EQ(CGImageSource::createWithData(gif.trailer().data()), nullptr) << signature;
  }
}

TEST(GIFStructure, TheOlderVersionMayHaveControlExtensionsAndSeveralImages) {
  GIFBuilder gif = screen(2, 1, "GIF87a");
  gif.control({.disposal = 2, .delay = 4});
  draw(gif, 0, 0, "R");
  gif.control({.delay = 5, .transparentIndex = white});
  draw(gif, 0, 0, "WG");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"R.", ".G"}));
  EXPECT_EQ(delays(gif), (Delays{0.04, 0.05}));
}

TEST(GIFStructure, TheTypeIsTheFormatsIdentifier) {
  GIFBuilder gif = screen(1, 1);
  draw(gif, 0, 0, "R");
  const auto source = CGImageSource::createWithData(gif.trailer().data());
  EXPECT_EQ(source->type(), "com.compuserve.gif");
  EXPECT_TRUE(UTTypeConformsTo(source->type(), kUTTypeGIF));
}

TEST(GIFStructure, AnIndexPastTheEndHasNothing) {
  GIFBuilder gif = screen(1, 1);
  draw(gif, 0, 0, "R");
  const auto source = CGImageSource::createWithData(gif.trailer().data());
  EXPECT_EQ(source->count(), 1U);
  EXPECT_EQ(source->createImageAtIndex(1), nullptr);
  EXPECT_EQ(source->copyPropertiesAtIndex(1), std::nullopt);
}

TEST(GIFStructure, WithoutATrailerAllFramesAreThere) {
  GIFBuilder gif = screen(1, 1);
  draw(gif, 0, 0, "R");
  draw(gif, 0, 0, "G");
  EXPECT_EQ(frames(gif), (Texts{"R", "G"}));
}

TEST(GIFStructure, NothingAfterTheTrailerCounts) {
  GIFBuilder other = screen(1, 1);
  draw(other, 0, 0, "G");
  GIFBuilder gif = screen(1, 1);
  draw(gif, 0, 0, "R");
  gif.trailer().bytes(*other.trailer().data());
  EXPECT_EQ(frames(gif), (Texts{"R"}));
  draw(gif, 0, 0, "B");
  EXPECT_EQ(frames(gif), (Texts{"R"}));
}

TEST(GIFStructure, ReadingStopsAtWhatIsNoBlock) {
  for (const std::uint8_t junk : {0x00, 0x01, 0xFF}) {
    GIFBuilder gif = screen(1, 1);
    draw(gif, 0, 0, "R");
    gif.bytes({junk});
    draw(gif, 0, 0, "G");
    EXPECT_EQ(frames(gif.trailer()), (Texts{"R"})) << int{junk};
  }
}

TEST(GIFStructure, TheLastFrameNeedsNoEmptySubBlock) {
  GIFBuilder gif = screen(2, 1);
  draw(gif, 0, 0, "RG");
  gif.cutTo(gif.size() - 1);
  EXPECT_EQ(frames(gif), (Texts{"RG"}));
  // The trailer is then taken as the length of a sub-block.
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RG"}));
}

TEST(GIFStructure, AFileThatEndsAfterAControlExtensionKeepsTheFramesBefore) {
  GIFBuilder gif = screen(1, 1);
  draw(gif, 0, 0, "R");
  EXPECT_EQ(frames(gif.control({.delay = 9})), (Texts{"R"}));
}

TEST(GIFStructure, AFileThatEndsAfterADescriptorHasAFrameThatCannotBeDecoded) {
  constexpr std::array<std::uint8_t, 6> table{};
  for (const GIFBuilder::ColourTable colours : {GIFBuilder::ColourTable{}, {table}}) {
    GIFBuilder gif = screen(1, 1);
    draw(gif, 0, 0, "R");
    gif.control({.delay = 9}).descriptor({.width = 1, .height = 1, .colours = colours});
    EXPECT_EQ(frames(gif), (Texts{"R", "none"}));
    EXPECT_EQ(delays(gif), (Delays{-1, 0.09}));
  }
}

TEST(GIFStructure, AFileThatEndsInADescriptorKeepsTheFramesBefore) {
  GIFBuilder gif = screen(1, 1);
  draw(gif, 0, 0, "R");
  const std::size_t size = gif.size();
  gif.descriptor({.width = 1, .height = 1});
  for (std::size_t cut = gif.size() - 1; cut >= size; --cut) {
    EXPECT_EQ(frames(gif.cutTo(cut)), (Texts{"R"})) << cut;
  }
}

TEST(GIFStructure, OfTwoControlExtensionsTheLastCountsWhole) {
  GIFBuilder gif = screen(2, 1);
  draw(gif, 0, 0, "RR");
  gif.control({.disposal = 2, .delay = 9, .transparentIndex = white}).control({.delay = 3});
  draw(gif, 0, 0, "WG");
  draw(gif, 1, 0, "B");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RR", "WG", "WB"}));
  EXPECT_EQ(delays(gif), (Delays{-1, 0.03, -1}));
}

TEST(GIFStructure, AnImageWithoutAControlExtensionInheritsNothing) {
  GIFBuilder gif = screen(2, 1);
  gif.control({.disposal = 1, .delay = 8, .transparentIndex = white});
  draw(gif, 0, 0, "RW");
  draw(gif, 0, 0, "WG");
  draw(gif, 1, 0, "W");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"R.", "WG", "WW"}));
  EXPECT_EQ(delays(gif), (Delays{0.08, -1, -1}));
}

TEST(GIFStructure, AControlExtensionOfTheWrongLengthIsPassedOver) {
  const GIFBuilder::Bytes shortOne{0x21, 0xF9, 3, 0x08, 10, 0, 0};
  const GIFBuilder::Bytes longOne{0x21, 0xF9, 5, 0x08, 10, 0, 0, 0, 0};
  const GIFBuilder::Bytes emptyOne{0x21, 0xF9, 0};
  for (const GIFBuilder::Bytes& control : {shortOne, longOne, emptyOne}) {
    GIFBuilder gif = screen(2, 1);
    draw(gif, 0, 0, "R");
    gif.bytes(control);
    draw(gif, 1, 0, "G");
    draw(gif, 0, 0, "B");
    EXPECT_EQ(frames(gif.trailer()), (Texts{"R.", "RG", "BG"})) << control.size();
    EXPECT_EQ(delays(gif), (Delays{-1, -1, -1})) << control.size();
  }
}

TEST(GIFStructure, AControlExtensionSurvivesAComment) {
  GIFBuilder gif = screen(2, 1);
  draw(gif, 0, 0, "RR");
  gif.control({.delay = 6, .transparentIndex = white}).bytes({0x21, 0xFE, 2, 'h', 'i', 0});
  draw(gif, 0, 0, "WG");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RR", "RG"}));
  EXPECT_EQ(delays(gif), (Delays{-1, 0.06}));
}

TEST(GIFStructure, APlainTextIsNotDrawnAndUsesUpItsControlExtension) {
  GIFBuilder gif = screen(2, 1);
  draw(gif, 0, 0, "RR");
  gif.control({.delay = 6, .transparentIndex = white});
  gif.bytes({0x21, 0x01, 12, 0, 0, 0, 0, 2, 0, 1, 0, 8, 8, 1, 2, 1, 'x', 0});
  draw(gif, 0, 0, "WG");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RR", "WG"}));
  EXPECT_EQ(delays(gif), (Delays{-1, -1}));
}

TEST(GIFStructure, UnknownExtensionsArePassedOver) {
  GIFBuilder gif = screen(1, 1);
  gif.bytes({0x21, 0xFF, 11, 'N', 'E', 'T', 'S', 'C', 'A', 'P', 'E', '2', '.', '0', 3, 1, 0, 0, 0});
  gif.bytes({0x21, 0x77, 1, 0x2C, 2, 0x3B, 0x2C, 0});
  draw(gif, 0, 0, "R");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"R"}));
}

TEST(GIFStructure, SeveralImagesWithoutControlExtensionsAreAFrameEach) {
  GIFBuilder gif = screen(3, 1);
  draw(gif, 0, 0, "R");
  draw(gif, 1, 0, "G");
  draw(gif, 2, 0, "B");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"R..", "RG.", "RGB"}));
  EXPECT_EQ(delays(gif), (Delays{-1, -1, -1}));
}

TEST(GIFStructure, DelaysAreKeptAsInTheFileAndClampedBesides) {
  struct Row {
    unsigned stored;
    double unclamped;
    double clamped;
  };
  for (const Row& row : {Row{0, 0, 0.1}, Row{1, 0.01, 0.1}, Row{2, 0.02, 0.02}, Row{3, 0.03, 0.03},
                         Row{10, 0.1, 0.1}, Row{65535, 655.35, 655.35}}) {
    GIFBuilder gif = screen(1, 1);
    gif.control({.delay = row.stored});
    draw(gif, 0, 0, "R");
    const auto properties =
        CGImageSource::createWithData(gif.trailer().data())->copyPropertiesAtIndex(0);
    ASSERT_TRUE(properties);
    EXPECT_EQ(properties->gif.unclampedDelayTime, row.unclamped);
    EXPECT_EQ(properties->gif.delayTime, row.clamped);
  }
}

TEST(GIFStructure, AFrameWithoutAControlExtensionHasNeitherDelay) {
  GIFBuilder gif = screen(4, 3);
  draw(gif, 0, 0, "R");
  const auto properties =
      CGImageSource::createWithData(gif.trailer().data())->copyPropertiesAtIndex(0);
  ASSERT_TRUE(properties);
  EXPECT_EQ(properties->gif.unclampedDelayTime, std::nullopt);
  EXPECT_EQ(properties->gif.delayTime, std::nullopt);
  EXPECT_EQ(properties->pixelWidth, 4U);
  EXPECT_EQ(properties->pixelHeight, 3U);
}

}  // namespace
