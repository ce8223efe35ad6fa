#include "dialler/model/RevealGesture.h"

#include <QVariant>

#include <gtest/gtest.h>

namespace {

class RevealGestureTest : public testing::Test {
 protected:
  RevealGestureTest() {
    gesture.setProperty("distance", QVariant(90.0));
    QObject::connect(&gesture, &RevealGesture::tapped, [this] { ++taps; });
  }

  void swipe(qreal way) {
    gesture.press({0, 0});
    gesture.move({way / 2, 0});
    gesture.move({way, 0});
  }

  qint64 now = 0;
  RevealGesture gesture{[this] { return now; }, nullptr};
  int taps = 0;
};

TEST_F(RevealGestureTest, ATapIsATapInEveryMode) {
  for (const int mode : {RevealGesture::Swipe, RevealGesture::Hold, RevealGesture::Always}) {
    gesture.setMode(mode);
    gesture.press({0, 0});
    gesture.move({3, -3});
    gesture.release();
  }
  EXPECT_EQ(taps, 3);
}

TEST_F(RevealGestureTest, ASwipeToEitherSideFollowsTheFingerAndBringsTheButton) {
  for (const qreal way : {-100.0, 100.0}) {
    gesture.setMode(RevealGesture::Always);
    gesture.setMode(RevealGesture::Swipe);
    gesture.press({0, 0});
    gesture.move({way / 2, 0});
    EXPECT_NEAR(gesture.pull(), 0.5, 0.001);
    EXPECT_FALSE(gesture.isRevealed());
    gesture.move({way, 0});
    EXPECT_EQ(gesture.pull(), 1);
    gesture.release();
    EXPECT_TRUE(gesture.isRevealed());
  }
  EXPECT_EQ(taps, 0);
}

TEST_F(RevealGestureTest, ASwipeThatIsGivenUpPressesNothing) {
  gesture.setMode(RevealGesture::Swipe);
  swipe(-80);
  gesture.move({-20, 0});
  gesture.release();
  EXPECT_FALSE(gesture.isRevealed());
  EXPECT_EQ(gesture.pull(), 0);
  swipe(-80);
  gesture.cancel();
  gesture.release();
  EXPECT_FALSE(gesture.isRevealed());
  swipe(-40);
  gesture.move({0, 0});
  gesture.release();
  EXPECT_EQ(taps, 0);
}

TEST_F(RevealGestureTest, HoldingFillsTheRingAndThenBringsTheButton) {
  gesture.setMode(RevealGesture::Hold);
  gesture.press({0, 0});
  now += RevealGesture::kTapTime;
  gesture.tick();
  EXPECT_EQ(gesture.fill(), 0);
  now += RevealGesture::kHoldTime / 2;
  gesture.tick();
  EXPECT_NEAR(gesture.fill(), 0.5, 0.001);
  EXPECT_FALSE(gesture.isRevealed());
  now += RevealGesture::kHoldTime / 2;
  gesture.tick();
  EXPECT_TRUE(gesture.isRevealed());
  gesture.release();
  EXPECT_TRUE(gesture.isRevealed());
  EXPECT_EQ(taps, 0);
}

TEST_F(RevealGestureTest, AHoldThatIsGivenUpPressesNothing) {
  gesture.setMode(RevealGesture::Hold);
  gesture.press({0, 0});
  now += RevealGesture::kTapTime + 10;
  gesture.release();
  EXPECT_EQ(taps, 0);
  EXPECT_FALSE(gesture.isRevealed());
  gesture.press({0, 0});
  now += RevealGesture::kTapTime + 10;
  gesture.tick();
  gesture.move({0, 40});
  EXPECT_EQ(gesture.fill(), 0);
  now += 10'000;
  gesture.tick();
  gesture.release();
  EXPECT_EQ(taps, 0);
  EXPECT_FALSE(gesture.isRevealed());
}

TEST_F(RevealGestureTest, AHoldCountsWhereNoFrameCameMeanwhile) {
  gesture.setMode(RevealGesture::Hold);
  gesture.press({0, 0});
  now += RevealGesture::kTapTime + RevealGesture::kHoldTime;
  gesture.release();
  EXPECT_TRUE(gesture.isRevealed());
  EXPECT_EQ(taps, 0);
}

TEST_F(RevealGestureTest, OnceItIsThereTheGreenButtonIsAnOrdinaryOne) {
  gesture.setMode(RevealGesture::Hold);
  gesture.reveal();
  EXPECT_TRUE(gesture.isRevealed());
  gesture.press({0, 0});
  now += 10'000;
  gesture.tick();
  EXPECT_EQ(gesture.fill(), 0);
  gesture.release();
  EXPECT_EQ(taps, 1);
}

TEST_F(RevealGestureTest, AnotherModeTakesBackWhatWasBrought) {
  gesture.setMode(RevealGesture::Swipe);
  gesture.reveal();
  gesture.setMode(RevealGesture::Hold);
  EXPECT_FALSE(gesture.isRevealed());
  gesture.setMode(RevealGesture::Always);
  EXPECT_TRUE(gesture.isRevealed());
}

}  // namespace
