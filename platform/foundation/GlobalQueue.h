#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>

#include "platform/api.h"

/// The platform's global concurrent queue of high priority: tasks start in the order in which they
/// were added and run side by side. Any thread.
class PLATFORM_API GlobalQueue {
 public:
  using Task = std::function<void()>;

  static GlobalQueue& shared();

  GlobalQueue(const GlobalQueue&) = delete;
  GlobalQueue& operator=(const GlobalQueue&) = delete;
  GlobalQueue(GlobalQueue&&) = delete;
  GlobalQueue& operator=(GlobalQueue&&) = delete;

  /// Adds a task; it must not throw. At most 64 run at once, since tasks may wait for the network;
  /// the others wait for their turn.
  void async(Task task);

  /// True when no task runs or waits.
  bool isIdle() const;
  /// Waits until then. Not from within a task.
  void waitUntilIdle();

 private:
  GlobalQueue() = default;
  void work();

  mutable std::mutex mutex_;
  std::condition_variable becameIdle_;
  std::deque<Task> tasks_;   // guarded by mutex_
  std::size_t workers_ = 0;  // guarded by mutex_
};
