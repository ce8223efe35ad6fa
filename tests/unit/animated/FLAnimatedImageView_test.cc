#include "animated/FLAnimatedImageView.h"

#include <limits>

#include "platform/foundation/NSProcessInfo.h"
#include "tests/support/StopCounter.h"
#include "tests/unit/animated/AnimatedTest.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

constexpr double kSixtieth = 1.0 / 60;

class Processors : public NSProcessInfo {
 public:
  explicit Processors(unsigned count) : count_(count) {}
  unsigned activeProcessorCount() const override { return count_; }

 private:
  unsigned count_;
};

class FLAnimatedImageViewTest : public AnimatedTest {
 protected:
  ~FLAnimatedImageViewTest() override {
    NSProcessInfo::setProcessInfo(nullptr);
    NSRunLoop::mainRunLoop().setCurrentMode(NSDefaultRunLoopMode);
  }

  /// The view with that image, in the window, with every frame decoded.
  void play(const std::shared_ptr<FLAnimatedImage>& image) {
    if (image->frameCount() > 1) {
      image->imageLazilyCachedAtIndex(0);
      drainAllQueues();
    }
    view->setAnimatedImage(image);
    window->addSubview(view);
  }

  void refresh(int count = 1, double duration = kSixtieth) {
    for (int i = 0; i < count; ++i) {
      drainAllQueues();
      displayRefresh->refresh(duration);
    }
  }

  /// The first pixel of what the layer shows when the host next asks for it.
  std::uint32_t shown() {
    view->layer().displayIfNeeded();
    const auto& contents = view->layer().contents();
    return contents ? contents->pixels()->pixels().front() : 0;
  }

  std::shared_ptr<FLAnimatedImageView> view = allocInit<FLAnimatedImageView>();
  std::shared_ptr<StopCounter> delegate = allocInit<StopCounter>();
};

TEST_F(FLAnimatedImageViewTest, IsAPlainImageViewWithoutAnAnimatedImage) {
  const auto still = make(frames(1, 8, 6))->posterImage();
  window->addSubview(view);
  view->setImage(still);
  EXPECT_EQ(view->image(), still);
  EXPECT_EQ(view->intrinsicContentSize(), (CGSize{8, 6}));
  EXPECT_EQ(shown(), 0xFFFF0000);
  view->setHighlighted(true);
  EXPECT_TRUE(view->isHighlighted());
  view->startAnimating();
  EXPECT_FALSE(view->isAnimating());
  EXPECT_EQ(view->displayLink(), nullptr);
  view->stopAnimating();
}

TEST_F(FLAnimatedImageViewTest, ShowsThePosterBeforeItPlays) {
  const auto image = make(frames(3, 8, 6));
  view->setAnimatedImage(image);
  EXPECT_EQ(view->image(), image->posterImage());
  EXPECT_EQ(view->intrinsicContentSize(), (CGSize{8, 6}));
  EXPECT_EQ(shown(), 0xFFFF0000);
  EXPECT_EQ(view->loopCountdown(), 1);
}

TEST_F(FLAnimatedImageViewTest, NeverAddedToAWindowItNeverHasADisplayLink) {
  view->setAnimatedImage(make(frames(3)));
  EXPECT_EQ(view->displayLink(), nullptr);
  const auto outside = allocInit<UIView>();
  outside->addSubview(view);
  EXPECT_EQ(view->displayLink(), nullptr);
  EXPECT_FALSE(displayRefresh->isWanted());
  view->removeFromSuperview();
  EXPECT_EQ(view->displayLink(), nullptr);
}

TEST_F(FLAnimatedImageViewTest, PlaysAsSoonAsItStandsInAWindowAtAnyDepth) {
  const auto parent = allocInit<UIView>();
  parent->addSubview(view);
  view->setAnimatedImage(make(frames(3)));
  EXPECT_FALSE(view->isAnimating());
  window->addSubview(parent);
  EXPECT_TRUE(view->isAnimating());
  EXPECT_TRUE(displayRefresh->isWanted());
}

TEST_F(FLAnimatedImageViewTest, PlaysAnImageThatIsSetInTheWindow) {
  window->addSubview(view);
  EXPECT_FALSE(view->isAnimating());
  view->setAnimatedImage(make(frames(3)));
  EXPECT_TRUE(view->isAnimating());
}

// Six refreshes make 0.1 as a double, but the delay counts as the next larger single.
TEST_F(FLAnimatedImageViewTest, ATenthOfASecondTakesSevenRefreshesOfASixtieth) {
  play(make(frames(3)));
  refresh(6);
  EXPECT_EQ(view->currentFrameIndex(), 0);
  refresh();
  EXPECT_EQ(view->currentFrameIndex(), 1);
  EXPECT_DOUBLE_EQ(view->accumulator(), 7 * kSixtieth - 0.10000000149011612);
}

TEST_F(FLAnimatedImageViewTest, DelaysOfTwoHundredthsPassOneOrTwoFramesARefresh) {
  play(make({.delays = std::vector<std::optional<unsigned>>(8, 2)}));
  std::vector<NSUInteger> indexes;
  for (int i = 0; i < 7; ++i) {
    refresh();
    indexes.push_back(view->currentFrameIndex());
  }
  std::vector<NSUInteger> expected;
  double time = 0;
  NSUInteger index = 0;
  for (int i = 0; i < 7; ++i) {
    time += kSixtieth;
    for (const double delay = static_cast<double>(0.02F); time >= delay; ++index) {
      time -= delay;
    }
    expected.push_back(index);
  }
  EXPECT_THAT(indexes, ElementsAreArray(expected));
  EXPECT_THAT(indexes, ElementsAre(0, 1, 2, 3, 4, 5, 5));
}

TEST_F(FLAnimatedImageViewTest, ALongRefreshPassesSeveralFrames) {
  play(make({.delays = std::vector<std::optional<unsigned>>(8, 2)}));
  refresh(1, 0.05);
  EXPECT_EQ(view->currentFrameIndex(), 2);
  EXPECT_TRUE(view->needsDisplayWhenImageBecomesAvailable());
  refresh(1, 0.001);
  EXPECT_EQ(shown(), 0xFF0000FF);
}

TEST_F(FLAnimatedImageViewTest, AFrameIsShownAtTheRefreshAfterItsIndexIsReached) {
  play(make(frames(3)));
  EXPECT_EQ(shown(), 0xFFFF0000);
  refresh(7);
  EXPECT_FALSE(view->layer().needsDisplay());
  refresh();
  EXPECT_TRUE(view->layer().needsDisplay());
  EXPECT_EQ(shown(), 0xFF00FF00);
}

TEST_F(FLAnimatedImageViewTest, TheLayerIsRedrawnForNewFramesOnly) {
  play(make(frames(3)));
  shown();
  int redraws = 0;
  for (int i = 0; i < 17; ++i) {
    refresh();
    redraws += view->layer().needsDisplay() ? 1 : 0;
    shown();
  }
  EXPECT_EQ(redraws, 2);
}

TEST_F(FLAnimatedImageViewTest, WaitsForAFrameThatIsNotDecodedYet) {
  view->setAnimatedImage(make(frames(3)));
  window->addSubview(view);
  displayRefresh->refresh(0.11);
  EXPECT_EQ(view->currentFrameIndex(), 1);
  const double before = view->accumulator();
  displayRefresh->refresh(5);
  EXPECT_EQ(view->currentFrameIndex(), 1);
  EXPECT_EQ(view->accumulator(), before);
  drainAllQueues();
  displayRefresh->refresh(kSixtieth);
  EXPECT_GT(view->accumulator(), before);
  EXPECT_EQ(firstPixel(*view->currentFrame()), 0xFF00FF00);
}

TEST_F(FLAnimatedImageViewTest, StopsOnceAfterTheLastDelayWithTheLastFrameOnScreen) {
  view->setOvervationDelegate(delegate);
  play(make(frames(3)));
  refresh(18);
  EXPECT_TRUE(view->isAnimating());
  EXPECT_EQ(delegate->stops, 0);
  refresh();
  EXPECT_FALSE(view->isAnimating());
  EXPECT_TRUE(view->displayLink()->isPaused());
  EXPECT_FALSE(displayRefresh->isWanted());
  EXPECT_EQ(delegate->stops, 1);
  EXPECT_EQ(view->currentFrameIndex(), 3);
  EXPECT_EQ(view->loopCountdown(), 0);
  EXPECT_EQ(shown(), 0xFF0000FF);
  refresh(10);
  EXPECT_EQ(delegate->stops, 1);
  EXPECT_EQ(shown(), 0xFF0000FF);
}

TEST_F(FLAnimatedImageViewTest, AFinishedAnimationStaysAsItIsInAnotherWindow) {
  play(make(frames(3)));
  refresh(19);
  const auto other = allocInit<UIWindow>();
  other->addSubview(view);
  EXPECT_TRUE(view->isAnimating());
  refresh(30);
  EXPECT_EQ(view->currentFrameIndex(), 3);
  EXPECT_EQ(shown(), 0xFF0000FF);
}

TEST_F(FLAnimatedImageViewTest, AnotherImagePlaysAgain) {
  play(make(frames(3)));
  refresh(19);
  view->setAnimatedImage(make(frames(2)));
  EXPECT_TRUE(view->isAnimating());
  EXPECT_EQ(view->currentFrameIndex(), 0);
  EXPECT_EQ(view->loopCountdown(), 1);
  EXPECT_EQ(view->accumulator(), 0);
}

TEST_F(FLAnimatedImageViewTest, TheSameImageAgainChangesNothing) {
  const auto image = make(frames(3));
  play(image);
  refresh(8);
  view->setAnimatedImage(image);
  EXPECT_EQ(view->currentFrameIndex(), 1);
  EXPECT_GT(view->accumulator(), 0);
}

TEST_F(FLAnimatedImageViewTest, AStillImageTakesThePlaceOfTheAnimatedOne) {
  view->setOvervationDelegate(delegate);
  play(make(frames(3)));
  const auto still = make(frames(2))->predrawnImageAtIndex(1);
  view->setImage(still);
  EXPECT_EQ(view->animatedImage(), nullptr);
  EXPECT_EQ(view->image(), still);
  EXPECT_FALSE(view->isAnimating());
  EXPECT_FALSE(view->shouldAnimate());
  EXPECT_FALSE(displayRefresh->isWanted());
  EXPECT_EQ(delegate->stops, 1);
  EXPECT_EQ(shown(), 0xFF00FF00);
}

TEST_F(FLAnimatedImageViewTest, NoStillImageLeavesTheAnimatedOne) {
  const auto image = make(frames(3));
  play(image);
  view->setImage(nullptr);
  EXPECT_EQ(view->animatedImage(), image);
  EXPECT_TRUE(view->isAnimating());
}

TEST_F(FLAnimatedImageViewTest, SettingNoAnimatedImageWhereThereIsNoneIsSafe) {
  view->setOvervationDelegate(delegate);
  window->addSubview(view);
  view->setAnimatedImage(nullptr);
  EXPECT_EQ(view->animatedImage(), nullptr);
  EXPECT_EQ(view->currentFrame(), nullptr);
  EXPECT_EQ(view->image(), nullptr);
  EXPECT_EQ(view->loopCountdown(), std::numeric_limits<NSUInteger>::max());
  EXPECT_EQ(view->displayLink(), nullptr);
  EXPECT_FALSE(view->isAnimating());
  EXPECT_EQ(delegate->stops, 0);
  EXPECT_TRUE(view->layer().needsDisplay());
  EXPECT_EQ(shown(), 0);
  view->setAnimatedImage(nullptr);
}

TEST_F(FLAnimatedImageViewTest, HighlightingIsIgnoredWhileThereIsAnAnimatedImage) {
  view->setHighlighted(true);
  view->setAnimatedImage(make(frames(3)));
  EXPECT_FALSE(view->isHighlighted());
  view->setHighlighted(true);
  EXPECT_FALSE(view->isHighlighted());
}

TEST_F(FLAnimatedImageViewTest, LeavingTheWindowPausesAndComingBackGoesOn) {
  view->setOvervationDelegate(delegate);
  const auto parent = allocInit<UIView>();
  window->addSubview(parent);
  view->setAnimatedImage(make(frames(3)));
  parent->addSubview(view);
  refresh(8);
  parent->removeFromSuperview();
  EXPECT_FALSE(view->isAnimating());
  EXPECT_FALSE(displayRefresh->isWanted());
  EXPECT_EQ(delegate->stops, 1);
  EXPECT_EQ(view->currentFrameIndex(), 1);
  window->addSubview(parent);
  EXPECT_TRUE(view->isAnimating());
  refresh(1, 0.1);
  EXPECT_EQ(view->currentFrameIndex(), 2);
}

TEST_F(FLAnimatedImageViewTest, LosingItsSuperviewPauses) {
  auto parent = allocInit<UIView>();
  window->addSubview(parent);
  view->setAnimatedImage(make(frames(3)));
  parent->addSubview(view);
  view->removeFromSuperview();
  EXPECT_FALSE(view->isAnimating());
  EXPECT_FALSE(view->shouldAnimate());
}

TEST_F(FLAnimatedImageViewTest, ACoveredPagePausesItsAnimationUntilItIsSeenAgain) {
  const auto page = allocInit<UIViewController>();
  inner->pushViewControllerAnimated(page, false);
  view->setAnimatedImage(make(frames(3)));
  page->view()->addSubview(view);
  EXPECT_TRUE(view->isAnimating());
  inner->pushViewControllerAnimated(allocInit<UIViewController>(), false);
  EXPECT_FALSE(view->isAnimating());
  inner->popViewControllerAnimated(false);
  EXPECT_TRUE(view->isAnimating());
}

TEST_F(FLAnimatedImageViewTest, TheViewGoesWhileItsLinkExists) {
  play(make(frames(3)));
  const auto link = view->displayLink();
  view->removeFromSuperview();
  link->setPaused(false);
  const std::weak_ptr<FLAnimatedImageView> weak = view;
  view.reset();
  EXPECT_TRUE(weak.expired());
  EXPECT_FALSE(displayRefresh->isWanted());
  CADisplayLink::screenDidRefresh(kSixtieth);
}

TEST_F(FLAnimatedImageViewTest, PlaysWhileTheUserScrollsOnSeveralProcessors) {
  NSProcessInfo::setProcessInfo(std::make_unique<Processors>(2));
  play(make(frames(3)));
  NSRunLoop::mainRunLoop().setCurrentMode(UITrackingRunLoopMode);
  refresh(7);
  EXPECT_EQ(view->currentFrameIndex(), 1);
}

TEST_F(FLAnimatedImageViewTest, WaitsUntilTheUserHasScrolledOnASingleProcessor) {
  NSProcessInfo::setProcessInfo(std::make_unique<Processors>(1));
  play(make(frames(3)));
  NSRunLoop::mainRunLoop().setCurrentMode(UITrackingRunLoopMode);
  refresh(7);
  EXPECT_EQ(view->accumulator(), 0);
  NSRunLoop::mainRunLoop().setCurrentMode(NSDefaultRunLoopMode);
  refresh(7);
  EXPECT_EQ(view->currentFrameIndex(), 1);
}

TEST_F(FLAnimatedImageViewTest, ADelegateThatDoesNotListenIsNotTold) {
  view->setOvervationDelegate(allocInit<NSObject>());
  play(make(frames(2)));
  refresh(20);
  EXPECT_FALSE(view->isAnimating());
}

TEST_F(FLAnimatedImageViewTest, PlaysForAsLongAsItsDelaysAddUpTo) {
  for (const double rate : {24.0, 50.0, 60.0, 75.0, 144.0, 240.0}) {
    const GIF gif{.delays = {5, 7, 4, 11, 3, 20, 4, 4, 9, 6}};
    view = allocInit<FLAnimatedImageView>();
    play(make(gif));
    int refreshes = 0;
    while (view->isAnimating() && refreshes < 1000) {
      refresh(1, 1 / rate);
      ++refreshes;
    }
    EXPECT_NEAR(refreshes / rate, 0.73, 1 / rate + 1e-6) << rate;
  }
}

}  // namespace
