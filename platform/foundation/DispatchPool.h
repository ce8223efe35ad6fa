#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>

/// The threads that all queues share. Threads are made as they are needed, up to a few, and wait
/// for more work until the process ends. Any thread.
class DispatchPool {
 public:
  using Work = std::function<void()>;

  static DispatchPool& shared();

  void add(Work work);
  /// Waits until nothing is queued and nothing runs.
  void waitUntilIdle();
  bool isIdle();

 private:
  DispatchPool() = default;
  void run();

  std::mutex mutex_;
  std::condition_variable hasWork_;
  std::condition_variable isIdle_;
  std::deque<Work> work_;    // guarded by mutex_
  std::size_t threads_ = 0;  // guarded by mutex_
  std::size_t busy_ = 0;     // guarded by mutex_
};
