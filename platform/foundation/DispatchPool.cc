#include "platform/foundation/DispatchPool.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace {

// One thread for each processor but the main thread's own, and not many: the queues' work is
// decoding, which more threads do not speed up.
std::size_t mostThreads() {
  const std::size_t processors = std::thread::hardware_concurrency();
  return std::clamp<std::size_t>(processors, 2, 4);
}

}  // namespace

DispatchPool& DispatchPool::shared() {
  // Never destroyed: its threads wait in it until the process ends.
  static auto* pool = new DispatchPool;  // NOLINT(cppcoreguidelines-owning-memory)
  return *pool;
}

void DispatchPool::add(Work work) {
  const std::lock_guard lock(mutex_);
  work_.push_back(std::move(work));
  if (threads_ - busy_ < work_.size() && threads_ < mostThreads()) {
    ++threads_;
    std::thread([this] { run(); }).detach();
  }
  hasWork_.notify_one();
}

void DispatchPool::waitUntilIdle() {
  std::unique_lock lock(mutex_);
  isIdle_.wait(lock, [this] { return work_.empty() && busy_ == 0; });
}

bool DispatchPool::isIdle() {
  const std::lock_guard lock(mutex_);
  return work_.empty() && busy_ == 0;
}

void DispatchPool::run() {
  std::unique_lock lock(mutex_);
  while (true) {
    hasWork_.wait(lock, [this] { return !work_.empty(); });
    Work work = std::move(work_.front());
    work_.pop_front();
    ++busy_;
    lock.unlock();
    work();
    work = nullptr;
    lock.lock();
    --busy_;
    if (busy_ == 0 && work_.empty()) {
      isIdle_.notify_all();
    }
  }
}
