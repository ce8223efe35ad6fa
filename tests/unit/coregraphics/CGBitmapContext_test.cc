#include "platform/coregraphics/CGBitmapContext.h"

#include <limits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Each;
using testing::ElementsAre;

namespace {

constexpr std::uint32_t red = 0xFFFF0000;
constexpr std::uint32_t green = 0xFF00FF00;

std::shared_ptr<const CGImage> image(std::size_t width, const std::vector<std::uint32_t>& words) {
  const auto buffer = PixelBuffer::create(width, words.size() / width);
  std::ranges::copy(words, buffer->pixels().begin());
  return CGImage::create(buffer);
}

std::unique_ptr<CGBitmapContext> context(
    std::size_t width, std::size_t height,
    CGImageAlphaInfo alphaInfo = CGImageAlphaInfo::kPremultipliedFirst) {
  return CGBitmapContext::create(width, height, 8, 4 * width, CGColorSpace::createDeviceRGB(),
                                 alphaInfo);
}

/// Has memory for one red pixel once it has been asked in vain that often.
class NoMemory : public PixelProvider {
 public:
  int refusals = std::numeric_limits<int>::max();

  std::shared_ptr<const PixelBuffer> makePixels(std::size_t /*picture*/) override {
    return --refusals >= 0 ? nullptr : image(1, {red})->pixels();
  }
};

TEST(CGBitmapContext, OnlyThePlatformsLayoutIsMade) {
  const CGColorSpace space = CGColorSpace::createDeviceRGB();
  EXPECT_EQ(space.numberOfComponents(), 3U);
  using enum CGImageAlphaInfo;
  EXPECT_NE(CGBitmapContext::create(2, 2, 8, 8, space, kPremultipliedFirst), nullptr);
  EXPECT_NE(CGBitmapContext::create(2, 2, 8, 0, space, kNoneSkipFirst), nullptr);
  EXPECT_EQ(CGBitmapContext::create(2, 2, 8, 9, space, kPremultipliedFirst), nullptr);
  EXPECT_EQ(CGBitmapContext::create(2, 2, 16, 8, space, kPremultipliedFirst), nullptr);
  EXPECT_EQ(CGBitmapContext::create(0, 2, 8, 0, space, kPremultipliedFirst), nullptr);
  EXPECT_EQ(CGBitmapContext::create(65535, 65535, 8, 0, space, kPremultipliedFirst), nullptr);
  for (const CGImageAlphaInfo other :
       {kNone, kPremultipliedLast, kLast, kFirst, kNoneSkipLast, kOnly}) {
    EXPECT_EQ(CGBitmapContext::create(2, 2, 8, 8, space, other), nullptr);
  }
}

TEST(CGBitmapContext, AnEmptyOneIsTransparentOrBlack) {
  EXPECT_THAT(context(2, 1)->createImage()->pixels()->pixels(), ElementsAre(0, 0));
  const auto opaque = context(2, 1, CGImageAlphaInfo::kNoneSkipFirst)->createImage();
  EXPECT_THAT(opaque->pixels()->pixels(), ElementsAre(0xFF000000, 0xFF000000));
  EXPECT_EQ(opaque->alphaInfo(), CGImageAlphaInfo::kNoneSkipFirst);
}

TEST(CGBitmapContext, AFirstPictureOfItsSizeIsSharedNotCopied) {
  const auto source = image(2, {red, 0});
  const auto target = context(2, 1);
  target->drawImage(CGRectMake(0, 0, 2, 1), *source);
  EXPECT_EQ(target->createImage()->pixels(), source->pixels());
}

TEST(CGBitmapContext, WhatIsSharedIsNotDrawnOver) {
  const auto source = image(2, {red, 0});
  const auto target = context(2, 1);
  target->drawImage(CGRectMake(0, 0, 2, 1), *source);
  const auto before = target->createImage();
  target->drawImage(CGRectMake(1, 0, 1, 1), *image(1, {green}));
  const auto after = target->createImage();
  target->drawImage(CGRectMake(0, 0, 1, 1), *image(1, {green}));
  EXPECT_THAT(source->pixels()->pixels(), ElementsAre(red, 0));
  EXPECT_THAT(before->pixels()->pixels(), ElementsAre(red, 0));
  EXPECT_THAT(after->pixels()->pixels(), ElementsAre(red, green));
  EXPECT_THAT(target->createImage()->pixels()->pixels(), ElementsAre(green, green));
}

TEST(CGBitmapContext, TransparencyShowsWhatIsUnder) {
  const auto target = context(2, 1);
  target->drawImage(CGRectMake(0, 0, 2, 1), *image(2, {green, green}));
  target->drawImage(CGRectMake(0, 0, 2, 1), *image(2, {0, 0x80800000}));
  EXPECT_THAT(target->createImage()->pixels()->pixels(), ElementsAre(green, 0xFF807F00));
}

TEST(CGBitmapContext, WhatIsUnderIsSeenThroughTheFaintestTransparency) {
  const auto target = context(1, 1);
  target->drawImage(CGRectMake(0, 0, 1, 1), *image(1, {green}));
  target->drawImage(CGRectMake(0, 0, 1, 1), *image(1, {0xFEFE0000}));
  EXPECT_THAT(target->createImage()->pixels()->pixels(), ElementsAre(0xFFFE0100));
}

TEST(CGBitmapContext, APictureIsScaledToItsRectangleAndCutOffAtTheEdges) {
  const auto target = context(4, 2);
  target->drawImage(CGRectMake(2, -2, 4, 4), *image(2, {red, green, green, red}));
  EXPECT_THAT(target->createImage()->pixels()->pixels(),
              ElementsAre(0, 0, green, green, 0, 0, green, green));
}

TEST(CGBitmapContext, ARectangleWithoutExtentOrNumberDrawsNothing) {
  const auto target = context(2, 1);
  const double infinity = std::numeric_limits<double>::infinity();
  const double notANumber = std::numeric_limits<double>::quiet_NaN();
  for (const CGRect& rect : {CGRectMake(0, 0, 0, 1), CGRectMake(0, 0, infinity, 1),
                             CGRectMake(notANumber, 0, 1, 1), CGRectMake(0, 0, 1, notANumber)}) {
    target->drawImage(rect, *image(1, {red}));
  }
  EXPECT_THAT(target->createImage()->pixels()->pixels(), Each(0));
}

TEST(CGBitmapContext, APictureWithoutPixelsIsNotDrawnAsAnEmptyOne) {
  const auto none = CGImage::create(2, 1, std::make_shared<NoMemory>());
  EXPECT_EQ(none->pixels(), nullptr);
  const auto target = context(2, 1);
  target->drawImage(CGRectMake(0, 0, 2, 1), *none);
  EXPECT_EQ(target->createImage(), nullptr);
  // What is drawn later does not make up for it.
  target->drawImage(CGRectMake(0, 0, 1, 1), *image(1, {red}));
  EXPECT_EQ(target->createImage(), nullptr);
}

TEST(CGBitmapContext, APictureMadeBeforeOneWithoutPixelsStays) {
  const auto none = CGImage::create(2, 1, std::make_shared<NoMemory>());
  const auto target = context(2, 1);
  target->drawImage(CGRectMake(0, 0, 2, 1), *image(2, {red, green}));
  const auto before = target->createImage();
  target->drawImage(CGRectMake(0, 0, 2, 1), *none);
  EXPECT_EQ(target->createImage(), nullptr);
  EXPECT_THAT(before->pixels()->pixels(), ElementsAre(red, green));
}

TEST(CGImage, PixelsForWhichThereWasNoMemoryAreMadeLater) {
  const auto provider = std::make_shared<NoMemory>();
  provider->refusals = 2;
  const auto picture = CGImage::create(1, 1, provider);
  EXPECT_EQ(picture->pixels(), nullptr);
  EXPECT_EQ(picture->pixels(), nullptr);
  const auto made = picture->pixels();
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(picture->pixels(), made);
}

TEST(CGImage, ThereIsNoneWithoutPixels) {
  EXPECT_EQ(CGImage::create(nullptr), nullptr);
}

}  // namespace
