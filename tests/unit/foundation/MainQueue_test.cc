#include "platform/foundation/MainQueue.h"

#include <thread>

#include <gmock/gmock.h>

#include "platform/foundation/NSNumber.h"
#include "platform/foundation/Subclass.h"
#include "platform/foundation/method.h"
#include "tests/support/PaneTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string>& calls() {
  static std::vector<std::string> list;
  return list;
}

class Listener : public Subclass<Listener, NSObject> {
 public:
  static const ClassOf<Listener> classObject;
  ~Listener() override { destroyedOnMain = MainQueue::shared().isCurrent(); }

  void first() { calls().emplace_back("first"); }
  void second() { calls().emplace_back("second"); }
  void cancelling() { MainQueue::shared().cancelPreviousPerformRequestsWithTarget(*this); }

  inline static std::optional<bool> destroyedOnMain;
};

constexpr auto kListenerMethods =
    methods<Listener>(method<&Listener::first>("first"), method<&Listener::second>("second"),
                      method<&Listener::cancelling>("cancelling"));

constexpr ClassOf<Listener> Listener::classObject{"Listener", kListenerMethods};

class MainQueueTest : public PaneTest {
 protected:
  void later(const char* selector, double delay,
             const std::shared_ptr<NSObject>& argument = nullptr) {
    queue.performSelectorWithObjectAfterDelay(listener, selector, argument, delay);
  }
  void advance(double seconds) {
    clock->advance(seconds);
    queue.drain();
  }

  MainQueue& queue = MainQueue::shared();
  std::shared_ptr<Listener> listener = allocInit<Listener>();
};

TEST_F(MainQueueTest, TasksRunInTheOrderInWhichTheyWereAdded) {
  queue.async([] { calls().emplace_back("a"); });
  queue.async([] { calls().emplace_back("b"); });
  EXPECT_THAT(calls(), IsEmpty());
  queue.drain();
  EXPECT_THAT(calls(), ElementsAre("a", "b"));
}

TEST_F(MainQueueTest, WhatATaskAddsWaitsForTheNextTurn) {
  queue.async([this] {
    calls().emplace_back("a");
    queue.async([] { calls().emplace_back("b"); });
  });
  EXPECT_TRUE(queue.runTurn());
  EXPECT_THAT(calls(), ElementsAre("a"));
  EXPECT_FALSE(queue.runTurn());
  EXPECT_THAT(calls(), ElementsAre("a", "b"));
}

TEST_F(MainQueueTest, DelayedCallsRunByDeadlineAndNotBefore) {
  later("second", 3);
  later("first", 2);
  advance(1.999);
  EXPECT_THAT(calls(), IsEmpty());
  advance(0.001);
  EXPECT_THAT(calls(), ElementsAre("first"));
  advance(1);
  EXPECT_THAT(calls(), ElementsAre("first", "second"));
}

TEST_F(MainQueueTest, CallsWithTheSameDeadlineRunInTheOrderInWhichTheyWereMade) {
  later("second", 1);
  later("first", 1);
  advance(1);
  EXPECT_THAT(calls(), ElementsAre("second", "first"));
}

TEST_F(MainQueueTest, CancellingASelectorLeavesTheOthersAndOtherArguments) {
  const auto two = allocInit<NSObject>();
  later("first", 1, two);
  later("first", 1);
  later("second", 1, two);
  queue.cancelPreviousPerformRequestsWithTargetSelectorObject(*listener, "first", two);
  advance(1);
  EXPECT_THAT(calls(), ElementsAre("first", "second"));
}

TEST_F(MainQueueTest, ArgumentsThatAreEqualAreCancelledWhicheverObjectTheyAre) {
  later("first", 1, NSNumber::numberWithUnsignedInteger(2));
  later("second", 1, NSNumber::numberWithUnsignedInteger(3));
  const auto two = NSNumber::numberWithUnsignedInteger(2);
  queue.cancelPreviousPerformRequestsWithTargetSelectorObject(*listener, "first", two);
  queue.cancelPreviousPerformRequestsWithTargetSelectorObject(*listener, "second", two);
  advance(1);
  EXPECT_THAT(calls(), ElementsAre("second"));
}

TEST_F(MainQueueTest, AnEarlierCallCanCancelALaterOneOfTheSameMoment) {
  later("cancelling", 1);
  later("first", 1);
  advance(1);
  EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(MainQueueTest, ASelectorThatNobodyAnswersForDoesNothing) {
  later("unknown", 1);
  advance(1);
  EXPECT_FALSE(queue.nextDeadline());
}

TEST_F(MainQueueTest, NextDeadlineIsTheEarliest) {
  EXPECT_FALSE(queue.nextDeadline());
  later("first", 5);
  later("second", 2);
  EXPECT_EQ(queue.nextDeadline(), 2);
}

TEST_F(MainQueueTest, TheHostIsWokenForTasksFromOtherThreads) {
  int wakes = 0;
  queue.setWakeHook([&wakes] { ++wakes; });
  std::thread([this] { queue.async([] { calls().emplace_back("from afar"); }); }).join();
  queue.setWakeHook({});
  EXPECT_EQ(wakes, 1);
  queue.drain();
  EXPECT_THAT(calls(), ElementsAre("from afar"));
}

TEST_F(MainQueueTest, TheHostIsWokenForADelayedCallWhichMayBeDueSoonerThanItKnows) {
  int wakes = 0;
  queue.setWakeHook([&wakes] { ++wakes; });
  later("first", 5);
  queue.setWakeHook({});
  EXPECT_EQ(wakes, 1);
}

TEST_F(MainQueueTest, AnObjectDroppedOnAWorkerIsDestroyedOnTheMainQueue) {
  std::weak_ptr<Listener> weak = listener;
  std::thread([object = std::move(listener)]() mutable { object.reset(); }).join();
  EXPECT_TRUE(weak.expired());
  EXPECT_FALSE(Listener::destroyedOnMain);
  queue.drain();
  EXPECT_EQ(Listener::destroyedOnMain, true);
}

}  // namespace
