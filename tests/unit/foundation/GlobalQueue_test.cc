#include "platform/foundation/GlobalQueue.h"

#include <atomic>
#include <latch>

#include <gtest/gtest.h>

namespace {

TEST(GlobalQueue, TasksRunSideBySide) {
  // Each of the tasks waits for all others.
  std::latch everybody(10);
  for (int task = 0; task < 10; ++task) {
    GlobalQueue::shared().async([&] { everybody.arrive_and_wait(); });
  }
  GlobalQueue::shared().waitUntilIdle();
  EXPECT_TRUE(everybody.try_wait());
}

TEST(GlobalQueue, MoreTasksThanMayRunAtOnceAllRun) {
  std::atomic<int> running = 0;
  std::atomic<int> most = 0;
  std::atomic<int> done = 0;
  for (int task = 0; task < 500; ++task) {
    GlobalQueue::shared().async([&] {
      const int now = ++running;
      int before = most;
      while (now > before && !most.compare_exchange_weak(before, now)) {
      }
      ++done;
      --running;
    });
  }
  GlobalQueue::shared().waitUntilIdle();
  EXPECT_EQ(done, 500);
  EXPECT_LE(most, 64);
}

TEST(GlobalQueue, ATaskMayAddTasksAndTheQueueIsIdleOnlyAfterThem) {
  std::atomic<int> done = 0;
  GlobalQueue::shared().async([&] {
    for (int task = 0; task < 5; ++task) {
      GlobalQueue::shared().async([&] { ++done; });
    }
  });
  GlobalQueue::shared().waitUntilIdle();
  EXPECT_EQ(done, 5);
  EXPECT_TRUE(GlobalQueue::shared().isIdle());
}

TEST(GlobalQueue, WhatATaskHoldsIsLetGoBeforeTheQueueIsIdle) {
  auto held = std::make_shared<int>(1);
  const std::weak_ptr<int> weak = held;
  GlobalQueue::shared().async([held = std::move(held)] {});
  GlobalQueue::shared().waitUntilIdle();
  EXPECT_TRUE(weak.expired());
}

}  // namespace
