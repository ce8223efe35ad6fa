#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>

/// Threads that take work in the order in which it was added and run it side by side. They are made
/// as they are needed and wait for more work until the process ends: a pool is never destroyed. Any
/// thread.
class DispatchPool {
 public:
  using Work = std::function<void()>;

  explicit DispatchPool(std::size_t mostThreads) : mostThreads_(mostThreads) {}

  /// Adds work; it must not throw.
  void add(Work work);
  /// Waits until nothing is queued and nothing runs. Not from within the pool's work. Where no
  /// thread could be made, the work is done here.
  void waitUntilIdle();
  bool isIdle() const;

 private:
  void run();
  void runNext(std::unique_lock<std::mutex>& lock);

  const std::size_t mostThreads_;
  mutable std::mutex mutex_;
  std::condition_variable hasWork_;
  std::condition_variable becameIdle_;
  std::deque<Work> work_;    // guarded by mutex_
  std::size_t threads_ = 0;  // guarded by mutex_
  std::size_t busy_ = 0;     // guarded by mutex_
};
