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

}  // namespace
