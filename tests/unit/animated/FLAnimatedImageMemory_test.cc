#include <algorithm>
#include <set>

#include "animated/FLAnimatedImageView.h"
#include "platform/uikit/UIApplication.h"
#include "tests/support/AllocationMeter.h"
#include "tests/unit/animated/AnimatedTest.h"

namespace {

// 1024 x 256 pixels of 4 bytes: 1 MB.
constexpr unsigned kWidth = 1024;
constexpr unsigned kHeight = 256;
constexpr std::size_t kFrameBytes = std::size_t{1} << 20;

// What a player takes besides the frames that it holds: the poster, the canvas that the next frame
// is drawn on, the two buffers that wait to be used again, and the structure of the file.
constexpr std::size_t kBesides = 4 * kFrameBytes + kFrameBytes / 2;

class FLAnimatedImageMemoryTest : public AnimatedTest {
 protected:
  /// Decoded frames besides the poster.
  static std::size_t heldFrames(const FLAnimatedImage& image) {
    const auto held = image.cachedFrameIndexes().indexes();
    return held.size() - std::ranges::count(held, image.posterImageFrameIndex());
  }

  void start(const std::shared_ptr<FLAnimatedImage>& animation) {
    image = animation;
    view = allocInit<FLAnimatedImageView>();
    view->setAnimatedImage(image);
    window->addSubview(view);
    mostHeld = 0;
  }

  /// Plays on until that frame, or the end.
  void playUntil(NSUInteger index) {
    constexpr int kMostRefreshes = 10'000;
    for (int refresh = 0; view->isAnimating() && view->currentFrameIndex() < index; ++refresh) {
      ASSERT_LT(refresh, kMostRefreshes);
      displayRefresh->refresh(0.05);
      // After the refresh has dropped what lies behind it.
      mostHeld = std::max(mostHeld, heldFrames(*image));
      drainAllQueues();
    }
  }

  void playToTheEnd() {
    playUntil(image->frameCount());
    EXPECT_EQ(view->currentFrameIndex(), image->frameCount());
    EXPECT_FALSE(view->isAnimating());
  }

  std::shared_ptr<FLAnimatedImage> image;
  std::shared_ptr<FLAnimatedImageView> view;
  std::size_t mostHeld = 0;
};

TEST_F(FLAnimatedImageMemoryTest, AllFramesOfFiveMegabytesAreHeld) {
  const auto bytes = data(frames(5, kWidth, kHeight));
  allocationmeter::reset();
  start(FLAnimatedImage::animatedImageWithGIFData(bytes));
  playToTheEnd();
  EXPECT_EQ(mostHeld, 4);  // and the poster
  EXPECT_LT(allocationmeter::peak(), 4 * kFrameBytes + kBesides);
}

TEST_F(FLAnimatedImageMemoryTest, FiveFramesOfFortyMegabytesAreHeld) {
  const auto bytes = data(frames(40, kWidth, kHeight));
  allocationmeter::reset();
  start(FLAnimatedImage::animatedImageWithGIFData(bytes));
  playToTheEnd();
  EXPECT_EQ(mostHeld, 5);
  EXPECT_LT(allocationmeter::peak(), 5 * kFrameBytes + kBesides);
}

TEST_F(FLAnimatedImageMemoryTest, OneFrameOfTwoHundredMegabytesIsHeld) {
  const auto bytes = data(frames(200, kWidth, kHeight));
  allocationmeter::reset();
  start(FLAnimatedImage::animatedImageWithGIFData(bytes));
  playToTheEnd();
  EXPECT_EQ(mostHeld, 1);
  EXPECT_LT(allocationmeter::peak(), 1 * kFrameBytes + kBesides);
}

TEST_F(FLAnimatedImageMemoryTest, OneFrameIsHeldUnderPressureWhateverTheSize) {
  for (const std::size_t count : {5, 40, 200}) {
    const auto bytes = data(frames(count, kWidth, kHeight));
    image.reset();
    view.reset();
    allocationmeter::reset();
    const auto pressed = FLAnimatedImage::animatedImageWithGIFData(bytes);
    for (int warning = 0; warning < 4; ++warning) {
      UIApplication::sharedApplication().didReceiveMemoryWarning();
    }
    start(pressed);
    playToTheEnd();
    EXPECT_EQ(mostHeld, 1) << count;
    EXPECT_LT(allocationmeter::peak(), 1 * kFrameBytes + kBesides) << count;
    view->removeFromSuperview();
  }
}

TEST_F(FLAnimatedImageMemoryTest, SteadyPlayTakesNoFreshMemoryForItsFrames) {
  for (const std::size_t count : {40, 200}) {
    start(make(frames(count, kWidth, kHeight)));
    playUntil(count / 2);
    allocationmeter::reset();
    playToTheEnd();
    // The queue may begin a frame before the main thread has let the oldest go: a buffer more,
    // once.
    EXPECT_LT(allocationmeter::total(), 2 * kFrameBytes) << count;
  }
}

}  // namespace
