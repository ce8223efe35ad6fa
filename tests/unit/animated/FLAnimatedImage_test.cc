#include "animated/FLAnimatedImage.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <utility>

#include "platform/foundation/MainQueue.h"
#include "platform/foundation/NSNull.h"
#include "platform/uikit/UIApplication.h"
#include "tests/unit/animated/AnimatedTest.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::EndsWith;
using testing::StartsWith;

class FLAnimatedImageTest : public AnimatedTest {
 protected:
  /// The frames that asking for that one has produced, in the order in which they came.
  static std::vector<NSUInteger> producedByAskingFor(NSUInteger index, FLAnimatedImage& image) {
    std::vector<NSUInteger> order;
    NSIndexSet before = image.cachedFrameIndexes();
    const auto look = [&] {
      NSIndexSet fresh = image.cachedFrameIndexes();
      fresh.removeIndexes(std::exchange(before, image.cachedFrameIndexes()));
      std::ranges::copy(fresh.indexes(), std::back_inserter(order));
    };
    // The queue wakes the main thread for each frame that it sends, before it begins the next one.
    std::atomic<bool> woken = false;
    MainQueue::shared().setWakeHook([&] {
      if (!woken.exchange(true)) {
        MainQueue::shared().async(look);
        woken = false;
      }
    });
    image.imageLazilyCachedAtIndex(index);
    drainAllQueues();
    MainQueue::shared().setWakeHook({});
    return order;
  }
};

/// No pixels until there are some.
class LatePixels : public PixelProvider {
 public:
  std::shared_ptr<const PixelBuffer> later;

  std::shared_ptr<const PixelBuffer> makePixels(std::size_t /*picture*/) override { return later; }
};

TEST_F(FLAnimatedImageTest, NoDataIsNoImage) {
  EXPECT_EQ(FLAnimatedImage::animatedImageWithGIFData(nullptr), nullptr);
  EXPECT_EQ(FLAnimatedImage::animatedImageWithGIFData(NSData::dataWithBytes({})), nullptr);
  EXPECT_EQ(allocInit<FLAnimatedImage>(), nullptr);
}

TEST_F(FLAnimatedImageTest, AnotherFormatIsNoImage) {
  const std::vector<std::uint8_t> png{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13,
                                      'I',  'H', 'D', 'R', 0,    0,    0,    1,    0, 0, 0, 1};
  EXPECT_EQ(FLAnimatedImage::animatedImageWithGIFData(NSData::dataWithBytes(png)), nullptr);
}

TEST_F(FLAnimatedImageTest, AGIFWithoutAFrameThatCanBeDecodedIsNoImage) {
  GIF gif = frames(3);
  gif.allFaulty = true;
  EXPECT_EQ(make(gif), nullptr);
}

// Its later frames would lie beyond the end of the slots and delays.
TEST_F(FLAnimatedImageTest, AFaultyFrameBeforeAGoodOneMakesNoImage) {
  for (std::size_t faulty = 0; faulty < 4; ++faulty) {
    GIF gif = frames(5);
    gif.faulty = faulty;
    EXPECT_EQ(make(gif), nullptr) << faulty;
  }
}

TEST_F(FLAnimatedImageTest, AFaultyLastFrameIsLeftOut) {
  GIF gif = frames(5);
  gif.faulty = 4;
  const auto image = make(gif);
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->frameCount(), 4);
  EXPECT_EQ(image->delayTimes().size(), 4);
  EXPECT_EQ(image->cachedFrames().size(), 4);
}

TEST_F(FLAnimatedImageTest, TheImageSharesItsDataAndKnowsItsFirstFrame) {
  const auto bytes = data(frames(3, 7, 5));
  const auto image = FLAnimatedImage::animatedImageWithGIFData(bytes);
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->data(), bytes);
  EXPECT_EQ(image->size(), (CGSize{7, 5}));
  EXPECT_EQ(image->posterImageFrameIndex(), 0);
  EXPECT_EQ(firstPixel(*image->posterImage()), 0xFFFF0000);
  ASSERT_EQ(image->cachedFrames().size(), 3);
  EXPECT_EQ(image->cachedFrames()[0], image->posterImage());
  EXPECT_EQ(image->cachedFrames()[1], NSNull::null());
  EXPECT_EQ(image->cachedFrames()[2], NSNull::null());
  EXPECT_THAT(image->cachedFrameIndexes().indexes(), ElementsAre(0));
}

TEST_F(FLAnimatedImageTest, FramesWithoutADelayTakeATenthOfASecond) {
  EXPECT_THAT(make({.delays = {{}, {}, {}}})->delayTimes(), ElementsAre(0.1, 0.1, 0.1));
}

TEST_F(FLAnimatedImageTest, AFrameWithoutADelayTakesThatOfTheFrameBefore) {
  EXPECT_THAT(make({.delays = {30, {}, {}, 7, {}}})->delayTimes(),
              ElementsAre(0.3, 0.3, 0.3, 0.07, 0.07));
}

TEST_F(FLAnimatedImageTest, DelaysTooShortForADisplayTakeATenthOfASecond) {
  EXPECT_THAT(make({.delays = {1, 0, 2, 3}})->delayTimes(), ElementsAre(0.1, 0.1, 0.02, 0.03));
}

TEST_F(FLAnimatedImageTest, PlaysOnceWhateverTheFileSays) {
  for (const std::uint8_t loops : {0, 1, 7}) {
    GIFBuilder gif(1, 1, kColours);
    gif.bytes(
        {0x21, 0xFF, 11, 'N', 'E', 'T', 'S', 'C', 'A', 'P', 'E', '2', '.', '0', 3, 1, loops, 0, 0});
    const std::array<std::uint8_t, 1> pixel{0};
    gif.image({.width = 1, .height = 1}, 2, pixel).trailer();
    const auto image =
        FLAnimatedImage::animatedImageWithGIFData(NSData::dataWithBytes(*gif.data()));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->loopCount(), 1);
  }
}

TEST_F(FLAnimatedImageTest, ASingleFrameIsAnImageToo) {
  const auto image = make(frames(1));
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->frameCount(), 1);
  EXPECT_EQ(image->frameCacheSizeOptimal(), 1);
  EXPECT_EQ(image->imageLazilyCachedAtIndex(0), image->posterImage());
  EXPECT_EQ(image->requestedFrameIndexes().count(), 0);
}

TEST_F(FLAnimatedImageTest, TheCacheHoldsAllOfASmallAnimation) {
  EXPECT_EQ(make(frames(20, 100, 100))->frameCacheSizeOptimal(), 20);
}

// 1024 x 256 pixels of 4 bytes are 1 MB.
TEST_F(FLAnimatedImageTest, TheCacheHoldsEverythingUpToTenMegabytes) {
  EXPECT_EQ(make(frames(10, 1024, 256))->frameCacheSizeOptimal(), 10);
  EXPECT_EQ(make(frames(11, 1024, 256))->frameCacheSizeOptimal(), 5);
}

TEST_F(FLAnimatedImageTest, TheCacheHoldsFiveFramesUpToSeventyFiveMegabytes) {
  EXPECT_EQ(make(frames(75, 1024, 256))->frameCacheSizeOptimal(), 5);
  EXPECT_EQ(make(frames(76, 1024, 256))->frameCacheSizeOptimal(), 1);
}

TEST_F(FLAnimatedImageTest, TheCacheNeverHoldsMoreThanThereIs) {
  // 3 frames of 5 MB each.
  EXPECT_EQ(make(frames(3, 1024, 1280))->frameCacheSizeOptimal(), 3);
}

TEST_F(FLAnimatedImageTest, FramesToKeepWrapAroundAtTheEnd) {
  const auto image = make(twelveFramesOfWhichFiveAreKept());
  ASSERT_EQ(image->frameCacheSizeCurrent(), 5);
  image->setRequestedFrameIndex(10);
  EXPECT_THAT(image->frameIndexesToCache().indexes(), ElementsAre(0, 1, 2, 10, 11));
  image->setRequestedFrameIndex(4);
  EXPECT_THAT(image->frameIndexesToCache().indexes(), ElementsAre(0, 4, 5, 6, 7, 8));
  image->setRequestedFrameIndex(7);
  EXPECT_THAT(image->frameIndexesToCache().indexes(), ElementsAre(0, 7, 8, 9, 10, 11));
}

TEST_F(FLAnimatedImageTest, AllFramesAreKeptWhereTheCacheHoldsThemAll) {
  const auto image = make(frames(4));
  image->setRequestedFrameIndex(2);
  EXPECT_EQ(image->frameIndexesToCache(), image->allFramesIndexSet());
  EXPECT_THAT(image->allFramesIndexSet().indexes(), ElementsAre(0, 1, 2, 3));
}

TEST_F(FLAnimatedImageTest, TheClientsBoundHoldsAsLongAsItIsSet) {
  const auto image = make(twelveFramesOfWhichFiveAreKept());
  fetch(*image, 2);
  EXPECT_THAT(image->cachedFrameIndexes().indexes(), ElementsAre(0, 2, 3, 4, 5, 6));
  image->setFrameCacheSizeMax(3);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 3);
  EXPECT_THAT(image->cachedFrameIndexes().indexes(), ElementsAre(0, 2, 3, 4));
  image->setFrameCacheSizeMax(0);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 5);
  EXPECT_THAT(image->cachedFrameIndexes().indexes(), ElementsAre(0, 2, 3, 4));
}

TEST_F(FLAnimatedImageTest, TheSmallerOfTheBoundsCounts) {
  const auto image = make(twelveFramesOfWhichFiveAreKept());
  image->setFrameCacheSizeMax(8);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 5);
  image->setFrameCacheSizeMax(4);
  image->setFrameCacheSizeMaxInternal(2);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 2);
  image->setFrameCacheSizeMaxInternal(9);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 4);
}

TEST_F(FLAnimatedImageTest, AFrameThatIsNotThereYetComesFromTheBackground) {
  const auto image = make(frames(4));
  EXPECT_EQ(image->imageLazilyCachedAtIndex(1), nullptr);
  EXPECT_THAT(image->requestedFrameIndexes().indexes(), ElementsAre(1, 2, 3));
  drainAllQueues();
  EXPECT_EQ(image->requestedFrameIndexes().count(), 0);
  EXPECT_THAT(image->cachedFrameIndexes().indexes(), ElementsAre(0, 1, 2, 3));
  EXPECT_EQ(firstPixel(*image->imageLazilyCachedAtIndex(1)), 0xFF00FF00);
  EXPECT_EQ(firstPixel(*image->imageLazilyCachedAtIndex(2)), 0xFF0000FF);
}

TEST_F(FLAnimatedImageTest, FramesAreProducedFromTheRequestedOneOnAndThenFromTheFirst) {
  EXPECT_THAT(producedByAskingFor(3, *make(frames(6))), ElementsAre(3, 4, 5, 1, 2));
  const auto image = make(twelveFramesOfWhichFiveAreKept());
  EXPECT_THAT(producedByAskingFor(4, *image), ElementsAre(4, 5, 6, 7, 8));
  EXPECT_THAT(producedByAskingFor(10, *image), ElementsAre(10, 11, 1, 2));
  // Only what is missing.
  EXPECT_THAT(producedByAskingFor(11, *image), ElementsAre(3));
}

TEST_F(FLAnimatedImageTest, FramesOnTheirWayAreNotAskedForAgain) {
  const auto image = make(twelveFramesOfWhichFiveAreKept());
  image->imageLazilyCachedAtIndex(1);
  image->imageLazilyCachedAtIndex(2);
  EXPECT_THAT(image->requestedFrameIndexes().indexes(), ElementsAre(1, 2, 3, 4, 5, 6));
  // All of them are decoded, but not delivered yet: asking again gives the queue nothing to do.
  DispatchQueue::waitUntilAllIdle();
  std::atomic<int> sent = 0;
  MainQueue::shared().setWakeHook([&sent] { ++sent; });
  image->imageLazilyCachedAtIndex(2);
  DispatchQueue::waitUntilAllIdle();
  MainQueue::shared().setWakeHook({});
  EXPECT_EQ(sent, 0);
}

TEST_F(FLAnimatedImageTest, AnIndexPastTheEndChangesNothing) {
  const auto image = make(frames(4));
  image->imageLazilyCachedAtIndex(2);
  EXPECT_EQ(image->imageLazilyCachedAtIndex(4), nullptr);
  EXPECT_EQ(image->requestedFrameIndex(), 2);
}

TEST_F(FLAnimatedImageTest, FramesBehindTheRequestedOneAreDropped) {
  const auto image = make(twelveFramesOfWhichFiveAreKept());
  fetch(*image, 1);
  fetch(*image, 6);
  EXPECT_THAT(image->cachedFrameIndexes().indexes(), ElementsAre(0, 6, 7, 8, 9, 10));
  EXPECT_EQ(image->cachedFrames()[2], NSNull::null());
  EXPECT_EQ(image->cachedFrames()[0], image->posterImage());
}

TEST_F(FLAnimatedImageTest, APredrawnFrameKeepsSizeScaleAndAlpha) {
  const auto image = make(frames(2, 9, 4));
  const auto frame = image->predrawnImageAtIndex(1);
  EXPECT_EQ(frame->size(), (CGSize{9, 4}));
  EXPECT_EQ(frame->scale(), 1);
  EXPECT_EQ(frame->CGImage()->alphaInfo(), CGImageAlphaInfo::kPremultipliedFirst);
  EXPECT_EQ(firstPixel(*frame), 0xFF00FF00);
  EXPECT_EQ(frame->CGImage()->pixels()->pixels()[1], 0);
  EXPECT_EQ(image->predrawnImageAtIndex(2), nullptr);
}

TEST_F(FLAnimatedImageTest, ThePredrawnPictureCountsPointsNotPixels) {
  const auto pixels = make(frames(1, 8, 6))->posterImage()->CGImage();
  const auto twice = UIImage::imageWithCGImageScaleOrientation(pixels, 2, UIImageOrientation::kUp);
  const auto drawn = FLAnimatedImage::predrawnImageFromImage(twice);
  EXPECT_EQ(drawn->CGImage()->width(), 4);
  EXPECT_EQ(drawn->CGImage()->height(), 3);
  EXPECT_EQ(drawn->scale(), 2);
}

TEST_F(FLAnimatedImageTest, APictureThatCannotBeDrawnIsUsedAsItIs) {
  const auto pixels = make(frames(1, 8, 6))->posterImage()->CGImage();
  // Less than a point wide: there is no bitmap of that size.
  const auto thin = UIImage::imageWithCGImageScaleOrientation(pixels, 16, UIImageOrientation::kUp);
  EXPECT_EQ(FLAnimatedImage::predrawnImageFromImage(thin), thin);
  // The pixels of a picture from a file are the host's.
  const auto file = allocInit<UIImage>();
  EXPECT_EQ(FLAnimatedImage::predrawnImageFromImage(file), file);
}

TEST_F(FLAnimatedImageTest, AFrameWithoutMemoryForItIsDecodedWhenThereIsSome) {
  const auto pixels = std::make_shared<LatePixels>();
  const auto frame = UIImage::imageWithCGImage(CGImage::create(2, 1, pixels));
  const auto drawn = FLAnimatedImage::predrawnImageFromImage(frame);
  EXPECT_EQ(drawn, frame);
  EXPECT_EQ(drawn->CGImage()->pixels(), nullptr);
  pixels->later = make(frames(1, 2, 1))->posterImage()->CGImage()->pixels();
  EXPECT_EQ(drawn->CGImage()->pixels(), pixels->later);
  EXPECT_EQ(firstPixel(*drawn), 0xFFFF0000);
}

TEST_F(FLAnimatedImageTest, AMemoryWarningLeavesTheRequestedFrameAndThePoster) {
  const auto image = make(twelveFramesOfWhichFiveAreKept());
  fetch(*image, 3);
  UIApplication::sharedApplication().didReceiveMemoryWarning();
  EXPECT_EQ(image->memoryWarningCount(), 1);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 1);
  EXPECT_THAT(image->cachedFrameIndexes().indexes(), ElementsAre(0, 3));
}

TEST_F(FLAnimatedImageTest, TheCacheGrowsBackInStepsAfterAMemoryWarning) {
  const auto image = make(twelveFramesOfWhichFiveAreKept());
  UIApplication::sharedApplication().didReceiveMemoryWarning();
  advance(1.999);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 1);
  advance(0.001);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 2);
  advance(2.999);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 2);
  advance(0.001);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 5);
  EXPECT_FALSE(MainQueue::shared().nextDeadline());
}

TEST_F(FLAnimatedImageTest, AnotherMemoryWarningStartsTheGrowthAgain) {
  const auto image = make(twelveFramesOfWhichFiveAreKept());
  UIApplication::sharedApplication().didReceiveMemoryWarning();
  advance(1.5);
  UIApplication::sharedApplication().didReceiveMemoryWarning();
  advance(1.5);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 1);
  advance(0.5);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 2);
  advance(2);
  UIApplication::sharedApplication().didReceiveMemoryWarning();
  advance(1.5);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 1);
  advance(0.5);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 2);
  advance(3);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 5);
}

TEST_F(FLAnimatedImageTest, AfterFourMemoryWarningsTheCacheStaysSmall) {
  const auto image = make(twelveFramesOfWhichFiveAreKept());
  for (int warning = 0; warning < 4; ++warning) {
    UIApplication::sharedApplication().didReceiveMemoryWarning();
  }
  EXPECT_EQ(image->memoryWarningCount(), 4);
  EXPECT_FALSE(MainQueue::shared().nextDeadline());
  advance(60);
  EXPECT_EQ(image->frameCacheSizeCurrent(), 1);
}

TEST_F(FLAnimatedImageTest, AnImageThatGoesTakesItsObserverAndDelayedCallsAlong) {
  auto image = make(frames(4));
  UIApplication::sharedApplication().didReceiveMemoryWarning();
  EXPECT_TRUE(MainQueue::shared().nextDeadline());
  image.reset();
  EXPECT_FALSE(MainQueue::shared().nextDeadline());
  UIApplication::sharedApplication().didReceiveMemoryWarning();
  EXPECT_FALSE(MainQueue::shared().nextDeadline());
}

TEST_F(FLAnimatedImageTest, QueuedWorkFindsTheImageGoneAndDoesNotKeepIt) {
  auto image = make(frames(4));
  const std::weak_ptr<FLAnimatedImage> weak = image;
  image->imageLazilyCachedAtIndex(1);
  DispatchQueue::waitUntilAllIdle();
  image.reset();
  EXPECT_TRUE(weak.expired());
  drainAllQueues();
}

TEST_F(FLAnimatedImageTest, SizesAreThoseOfStillAndAnimatedImagesAndZeroOtherwise) {
  const auto image = make(frames(2, 9, 4));
  EXPECT_EQ(FLAnimatedImage::sizeForImage(image), (CGSize{9, 4}));
  EXPECT_EQ(FLAnimatedImage::sizeForImage(image->posterImage()), (CGSize{9, 4}));
  EXPECT_EQ(FLAnimatedImage::sizeForImage(nullptr), CGSizeZero);
  EXPECT_EQ(FLAnimatedImage::sizeForImage(NSNull::null()), CGSizeZero);
}

TEST_F(FLAnimatedImageTest, DescribesItselfBySizeAndFrameCount) {
  const auto image = make(frames(2, 9, 4));
  EXPECT_THAT(image->description(), StartsWith("<FLAnimatedImage: 0x"));
  EXPECT_THAT(image->description(), EndsWith("> size={9, 4} frameCount=2"));
}

}  // namespace
