#include "platform/foundation/DispatchPool.h"

#include <system_error>
#include <thread>
#include <utility>

void DispatchPool::add(Work work) {
  const std::lock_guard lock(mutex_);
  work_.push_back(std::move(work));
  if (threads_ - busy_ < work_.size() && threads_ < mostThreads_) {
    try {
      std::thread([this] { run(); }).detach();
      ++threads_;
    } catch (const std::system_error&) {
      // No thread is to be had. One that runs takes the work, or the next call makes one.
    }
  }
  hasWork_.notify_one();
}

void DispatchPool::waitUntilIdle() {
  std::unique_lock lock(mutex_);
  while (threads_ == 0 && !work_.empty()) {
    runNext(lock);
  }
  becameIdle_.wait(lock, [this] { return work_.empty() && busy_ == 0; });
}

bool DispatchPool::isIdle() const {
  const std::lock_guard lock(mutex_);
  return work_.empty() && busy_ == 0;
}

void DispatchPool::run() {
  std::unique_lock lock(mutex_);
  while (true) {
    hasWork_.wait(lock, [this] { return !work_.empty(); });
    runNext(lock);
  }
}

void DispatchPool::runNext(std::unique_lock<std::mutex>& lock) {
  Work work = std::move(work_.front());
  work_.pop_front();
  ++busy_;
  lock.unlock();
  work();
  // What the work holds is let go before the pool can count as idle.
  work = nullptr;
  lock.lock();
  --busy_;
  if (busy_ == 0 && work_.empty()) {
    becameIdle_.notify_all();
  }
}
