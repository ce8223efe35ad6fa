#include "platform/foundation/CFNotificationCenter.h"

#include "platform/foundation/MainQueue.h"
#include "platform/libsystem/notify.h"
#include "tests/support/PaneTest.h"

namespace {

int deliveries = 0;
void count() {
  ++deliveries;
}

class NotificationTest : public PaneTest {
 protected:
  void observe(const char* name) {
    CFNotificationCenterAddObserver(center, count, name,
                                    CFNotificationSuspensionBehavior::kCoalesce);
  }
  // Another process posts that often at the same moment.
  void hear(const char* name, int times) {
    for (int time = 0; time < times; ++time) {
      CFNotificationCenterDeliver(center, name);
    }
    MainQueue::shared().drain();
  }
  void advance(double seconds) {
    clock->advance(seconds);
    MainQueue::shared().drain();
  }

  CFNotificationCenter& center = CFNotificationCenterGetDarwinNotifyCenter();
};

TEST_F(NotificationTest, PostReturnsBeforeAnythingIsDelivered) {
  observe("a/b");
  CFNotificationCenterPostNotification(center, "a/b", true);
  EXPECT_EQ(deliveries, 0);
  MainQueue::shared().drain();
  EXPECT_EQ(deliveries, 1);
}

TEST_F(NotificationTest, EachPostIsOneDeliveryToEachRegistrationNeverMerged) {
  observe("a/b");
  observe("a/b");
  CFNotificationCenterPostNotification(center, "a/b", true);
  CFNotificationCenterPostNotification(center, "a/b", true);
  MainQueue::shared().drain();
  EXPECT_EQ(deliveries, 4);
}

TEST_F(NotificationTest, NamesAreExactLettersAndCaseIncluded) {
  observe("me.orlanvey.quietDial/PreferencesChanged");
  CFNotificationCenterPostNotification(center, "me.orlanvey.quietdial/PreferencesChanged", true);
  MainQueue::shared().drain();
  EXPECT_EQ(deliveries, 0);
}

TEST_F(NotificationTest, ThePlainCallReachesTheSameObservers) {
  observe("a/b");
  EXPECT_EQ(libsystem::notify_post("a/b"), libsystem::NOTIFY_STATUS_OK);
  MainQueue::shared().drain();
  EXPECT_EQ(deliveries, 1);
  EXPECT_EQ(take(), std::vector<Event>{(PostEvent{NotificationCall::kNotifyPost, "a/b"})});
}

TEST_F(NotificationTest, APostOfAnotherProcessIsDeliveredAndNotSentOnAgain) {
  observe("a/b");
  CFNotificationCenterDeliver(center, "a/b");
  MainQueue::shared().drain();
  EXPECT_EQ(deliveries, 1);
  EXPECT_TRUE(take().empty());
}

TEST_F(NotificationTest, OfManyPostsOfOtherProcessesTheFirstIsDeliveredAtOnceAndTheLastSurely) {
  observe("a/b");
  hear("a/b", 3000);
  EXPECT_EQ(deliveries, 1);
  advance(0.19);
  EXPECT_EQ(deliveries, 1);
  advance(0.01);
  EXPECT_EQ(deliveries, 2);
  advance(3600);
  EXPECT_EQ(deliveries, 2);
  hear("a/b", 1);
  EXPECT_EQ(deliveries, 3);
}

TEST_F(NotificationTest, PostsOfOtherProcessesAreDeliveredAtMostFiveTimesASecond) {
  observe("a/b");
  std::vector<double> moments;
  constexpr int kPosts = 3000;
  for (int millisecond = 0; millisecond < kPosts + 1000; ++millisecond) {
    const int before = deliveries;
    hear("a/b", millisecond < kPosts ? 1 : 0);
    ASSERT_LE(deliveries, before + 1);
    if (deliveries > before) {
      moments.push_back(clock->now());
    }
    clock->advance(0.001);
  }
  ASSERT_GE(moments.size(), 15U);
  for (std::size_t later = 1; later < moments.size(); ++later) {
    EXPECT_GT(moments[later] - moments[later - 1], 0.1999) << later;
  }
  EXPECT_GT(moments.back(), (kPosts - 2) * 0.001) << "the last post was not delivered";
}

TEST_F(NotificationTest, APostAfterAPauseIsDeliveredAtOnceAgain) {
  observe("a/b");
  hear("a/b", 2);
  advance(0.2);
  advance(0.2);
  EXPECT_EQ(deliveries, 2);
  hear("a/b", 1);
  EXPECT_EQ(deliveries, 3);
}

TEST_F(NotificationTest, NamesThatOtherProcessesPostDoNotHoldEachOtherBack) {
  observe("a/b");
  observe("c/d");
  hear("a/b", 5);
  hear("c/d", 5);
  EXPECT_EQ(deliveries, 2);
  advance(0.2);
  EXPECT_EQ(deliveries, 4);
}

TEST_F(NotificationTest, EachRegistrationIsToldOfADeliveryThatWasHeldBack) {
  observe("a/b");
  observe("a/b");
  hear("a/b", 5);
  EXPECT_EQ(deliveries, 2);
  advance(0.2);
  EXPECT_EQ(deliveries, 4);
}

TEST_F(NotificationTest, OwnPostsAreDeliveredOneByOneWhateverOtherProcessesPost) {
  observe("a/b");
  hear("a/b", 5);
  EXPECT_EQ(deliveries, 1);
  CFNotificationCenterPostNotification(center, "a/b", true);
  libsystem::notify_post("a/b");
  CFNotificationCenterPostNotification(center, "a/b", true);
  MainQueue::shared().drain();
  EXPECT_EQ(deliveries, 4);
  advance(0.2);
  EXPECT_EQ(deliveries, 5);
}

TEST_F(NotificationTest, AProgramThatAnswersEachDeliveryMakesNoEndlessLoop) {
  CFNotificationCenterAddObserver(
      center,
      [] {
        count();
        if (deliveries < 100) {
          CFNotificationCenterDeliver(CFNotificationCenterGetDarwinNotifyCenter(), "a/b");
        }
      },
      "a/b", CFNotificationSuspensionBehavior::kCoalesce);
  hear("a/b", 1);
  EXPECT_EQ(deliveries, 1);
  for (int time = 0; time < 5; ++time) {
    advance(0.2);
  }
  EXPECT_EQ(deliveries, 6);
}

TEST_F(NotificationTest, WhatNobodyObservesIsForgotten) {
  hear("a/b", 5);
  observe("a/b");
  EXPECT_EQ(MainQueue::shared().nextDeadline(), std::nullopt);
  advance(1);
  EXPECT_EQ(deliveries, 0);
}

}  // namespace
