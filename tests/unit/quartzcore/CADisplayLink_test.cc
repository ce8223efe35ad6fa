#include "platform/quartzcore/CADisplayLink.h"

#include <functional>

#include <gmock/gmock.h>

#include "platform/foundation/Subclass.h"
#include "platform/foundation/method.h"
#include "tests/support/PaneTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Target : public Subclass<Target, NSObject> {
 public:
  static const ClassOf<Target> classObject;

  void refreshed(const std::shared_ptr<CADisplayLink>& link) {
    durations.push_back(link->duration());
    if (then) {
      then();
    }
  }

  std::vector<double> durations;
  std::function<void()> then;
};

constexpr auto kMethods = methods<Target>(method<&Target::refreshed>("refreshed:"));
constexpr ClassOf<Target> Target::classObject{"Target", kMethods};

class CADisplayLinkTest : public PaneTest {
 protected:
  CADisplayLinkTest() { link->addToRunLoopForMode(loop, NSDefaultRunLoopMode); }
  ~CADisplayLinkTest() override {
    link->invalidate();
    loop.setCurrentMode(NSDefaultRunLoopMode);
  }

  NSRunLoop& loop = NSRunLoop::mainRunLoop();
  std::shared_ptr<Target> target = allocInit<Target>();
  std::shared_ptr<CADisplayLink> link =
      CADisplayLink::displayLinkWithTargetSelector(target, "refreshed:");
};

TEST_F(CADisplayLinkTest, CallsAtEveryRefreshWithItsDuration) {
  EXPECT_EQ(link->duration(), 0);
  displayRefresh->refresh(0.01);
  displayRefresh->refresh(0.02);
  EXPECT_THAT(target->durations, ElementsAre(0.01, 0.02));
}

TEST_F(CADisplayLinkTest, RefreshesAreWantedOnlyWhileALinkWaitsForThem) {
  EXPECT_TRUE(displayRefresh->isWanted());
  link->setPaused(true);
  EXPECT_FALSE(displayRefresh->isWanted());
  link->setPaused(false);
  EXPECT_TRUE(displayRefresh->isWanted());
  const auto other = CADisplayLink::displayLinkWithTargetSelector(target, "refreshed:");
  other->addToRunLoopForMode(loop, NSRunLoopCommonModes);
  link->invalidate();
  EXPECT_TRUE(displayRefresh->isWanted());
  other->invalidate();
  EXPECT_FALSE(displayRefresh->isWanted());
}

TEST_F(CADisplayLinkTest, APausedLinkIsNotCalled) {
  link->setPaused(true);
  CADisplayLink::screenDidRefresh(0.01);
  EXPECT_THAT(target->durations, IsEmpty());
}

TEST_F(CADisplayLinkTest, TheDefaultModeIsNotServedWhileTheUserScrolls) {
  loop.setCurrentMode(UITrackingRunLoopMode);
  displayRefresh->refresh(0.01);
  EXPECT_THAT(target->durations, IsEmpty());
}

TEST_F(CADisplayLinkTest, TheCommonModesAreServedWhileTheUserScrolls) {
  link->addToRunLoopForMode(loop, NSRunLoopCommonModes);
  loop.setCurrentMode(UITrackingRunLoopMode);
  displayRefresh->refresh(0.01);
  EXPECT_THAT(target->durations, ElementsAre(0.01));
}

TEST_F(CADisplayLinkTest, KeepsItsTargetUntilItIsInvalidated) {
  const std::weak_ptr<Target> weak = target;
  target.reset();
  EXPECT_FALSE(weak.expired());
  link->invalidate();
  EXPECT_TRUE(weak.expired());
}

TEST_F(CADisplayLinkTest, ALinkThatIsInvalidatedByAnotherIsNotCalled) {
  const auto laterTarget = allocInit<Target>();
  const auto later = CADisplayLink::displayLinkWithTargetSelector(laterTarget, "refreshed:");
  later->addToRunLoopForMode(loop, NSDefaultRunLoopMode);
  target->then = [&] { later->invalidate(); };
  displayRefresh->refresh(0.01);
  EXPECT_THAT(target->durations, ElementsAre(0.01));
  EXPECT_THAT(laterTarget->durations, IsEmpty());
}

TEST_F(CADisplayLinkTest, ALinkMayInvalidateItself) {
  target->then = [this] { link->invalidate(); };
  displayRefresh->refresh(0.01);
  CADisplayLink::screenDidRefresh(0.01);
  EXPECT_THAT(target->durations, ElementsAre(0.01));
}

TEST_F(CADisplayLinkTest, AnInvalidatedLinkStaysSo) {
  link->invalidate();
  link->addToRunLoopForMode(loop, NSDefaultRunLoopMode);
  EXPECT_FALSE(displayRefresh->isWanted());
}

}  // namespace
