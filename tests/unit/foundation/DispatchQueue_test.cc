#include "platform/foundation/DispatchQueue.h"

#include <atomic>
#include <future>
#include <set>
#include <thread>

#include <gmock/gmock.h>

#include "headless/drainAllQueues.h"
#include "platform/foundation/MainQueue.h"
#include "tests/support/PaneTest.h"

namespace {

class DispatchQueueTest : public PaneTest {};

TEST_F(DispatchQueueTest, TasksOfAQueueRunInOrderAndOneAtATime) {
  const auto queue = DispatchQueue::createSerial("test");
  std::vector<int> order;
  std::atomic<int> running = 0;
  std::atomic<int> mostRunning = 0;
  for (int task = 0; task < 200; ++task) {
    queue->async([&, task] {
      mostRunning = std::max(mostRunning.load(), ++running);
      order.push_back(task);
      --running;
    });
  }
  DispatchQueue::waitUntilAllIdle();
  ASSERT_EQ(order.size(), 200);
  EXPECT_TRUE(std::ranges::is_sorted(order));
  EXPECT_EQ(mostRunning, 1);
}

TEST_F(DispatchQueueTest, ManyQueuesShareAFewThreadsOffTheMainOne) {
  std::mutex mutex;
  std::set<std::thread::id> threads;
  for (int i = 0; i < 100; ++i) {
    DispatchQueue::createSerial("test")->async([&] {
      const std::lock_guard lock(mutex);
      threads.insert(std::this_thread::get_id());
    });
  }
  DispatchQueue::waitUntilAllIdle();
  EXPECT_LE(threads.size(), 4);
  EXPECT_FALSE(threads.contains(std::this_thread::get_id()));
}

TEST_F(DispatchQueueTest, OneQueueDoesNotWaitForAnother) {
  std::promise<void> release;
  const auto waiting = DispatchQueue::createSerial("waiting");
  waiting->async([gate = release.get_future().share()] { gate.wait(); });
  std::promise<void> ran;
  DispatchQueue::createSerial("other")->async([&ran] { ran.set_value(); });
  ran.get_future().wait();
  EXPECT_FALSE(DispatchQueue::areAllIdle());
  release.set_value();
  DispatchQueue::waitUntilAllIdle();
  EXPECT_TRUE(DispatchQueue::areAllIdle());
}

TEST_F(DispatchQueueTest, WhatATaskHoldsIsLetGoBeforeTheQueueIsIdle) {
  auto held = std::make_shared<int>(1);
  const std::weak_ptr<int> weak = held;
  DispatchQueue::createSerial("test")->async([held = std::move(held)] {});
  DispatchQueue::waitUntilAllIdle();
  EXPECT_TRUE(weak.expired());
}

TEST_F(DispatchQueueTest, DrainingFollowsWorkBackAndForth) {
  const auto queue = DispatchQueue::createSerial("test");
  int rounds = 0;
  std::function<void()> next = [&] {
    if (++rounds < 10) {
      queue->async([&] { MainQueue::shared().async(next); });
    }
  };
  MainQueue::shared().async(next);
  drainAllQueues();
  EXPECT_EQ(rounds, 10);
}

}  // namespace
