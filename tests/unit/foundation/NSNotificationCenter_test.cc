#include "platform/foundation/NSNotificationCenter.h"

#include <functional>

#include <gmock/gmock.h>

#include "platform/foundation/Subclass.h"
#include "platform/foundation/method.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Observer : public Subclass<Observer, NSObject> {
 public:
  static const ClassOf<Observer> classObject;
  ~Observer() override { NSNotificationCenter::defaultCenter().removeObserver(*this); }

  void noted(const std::shared_ptr<NSNotification>& notification) {
    names.push_back(notification->name());
    object = notification->object();
    if (then) {
      then();
    }
  }

  std::vector<std::string> names;
  std::shared_ptr<NSObject> object;
  std::function<void()> then;
};

constexpr auto kObserverMethods = methods<Observer>(method<&Observer::noted>("noted:"));
constexpr ClassOf<Observer> Observer::classObject{"Observer", kObserverMethods};

class NSNotificationCenterTest : public testing::Test {
 protected:
  void observe(Observer& observer, const char* name,
               const std::shared_ptr<NSObject>& object = nullptr) {
    center.addObserverSelectorNameObject(observer, "noted:", name, object);
  }

  NSNotificationCenter& center = NSNotificationCenter::defaultCenter();
  std::shared_ptr<Observer> first = allocInit<Observer>();
  std::shared_ptr<Observer> second = allocInit<Observer>();
  std::shared_ptr<NSObject> sender = allocInit<NSObject>();
};

TEST_F(NSNotificationCenterTest, EveryObserverOfTheNameIsToldAtOnce) {
  observe(*first, "a");
  observe(*second, "a");
  observe(*second, "b");
  center.postNotificationNameObject("a", sender);
  EXPECT_THAT(first->names, ElementsAre("a"));
  EXPECT_THAT(second->names, ElementsAre("a"));
  EXPECT_EQ(first->object, sender);
}

TEST_F(NSNotificationCenterTest, AnObserverOfOneSenderHearsOfNoOther) {
  observe(*first, "a", sender);
  center.postNotificationNameObject("a", second);
  center.postNotificationNameObject("a", nullptr);
  EXPECT_THAT(first->names, IsEmpty());
  center.postNotificationNameObject("a", sender);
  EXPECT_THAT(first->names, ElementsAre("a"));
}

TEST_F(NSNotificationCenterTest, ObserversAreNotKeptAlive) {
  observe(*first, "a");
  const std::weak_ptr<Observer> weak = first;
  first.reset();
  EXPECT_TRUE(weak.expired());
  center.postNotificationNameObject("a", nullptr);
}

TEST_F(NSNotificationCenterTest, AnObserverThatGoesDuringAPostIsNotToldAnyMore) {
  observe(*first, "a");
  observe(*second, "a");
  first->then = [this] { second.reset(); };
  const std::weak_ptr<Observer> weak = second;
  center.postNotificationNameObject("a", nullptr);
  EXPECT_TRUE(weak.expired());
  EXPECT_THAT(first->names, ElementsAre("a"));
}

TEST_F(NSNotificationCenterTest, AnObserverAddedDuringAPostIsToldOfTheNext) {
  observe(*first, "a");
  first->then = [this] {
    first->then = {};
    observe(*second, "a");
  };
  center.postNotificationNameObject("a", nullptr);
  EXPECT_THAT(second->names, IsEmpty());
  center.postNotificationNameObject("a", nullptr);
  EXPECT_THAT(second->names, ElementsAre("a"));
}

}  // namespace
