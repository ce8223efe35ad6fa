#include "platform/foundation/GlobalQueue.h"

#include <system_error>
#include <thread>
#include <utility>

namespace {

constexpr std::size_t kMostWorkers = 64;

}  // namespace

GlobalQueue& GlobalQueue::shared() {
  // Never destroyed: tasks may still run while the process ends.
  static auto* queue = new GlobalQueue;  // NOLINT(cppcoreguidelines-owning-memory)
  return *queue;
}

void GlobalQueue::async(Task task) {
  const std::lock_guard lock(mutex_);
  tasks_.push_back(std::move(task));
  if (workers_ == kMostWorkers) {
    return;
  }
  try {
    // Tasks are few and wait for the network: a worker ends when it finds nothing more to do.
    std::thread([this] { work(); }).detach();
    ++workers_;
  } catch (const std::system_error&) {
    // No thread is to be had. A running worker takes the task, or the next call starts one.
  }
}

bool GlobalQueue::isIdle() const {
  const std::lock_guard lock(mutex_);
  return workers_ == 0;
}

void GlobalQueue::waitUntilIdle() {
  std::unique_lock lock(mutex_);
  becameIdle_.wait(lock, [this] { return workers_ == 0; });
}

void GlobalQueue::work() {
  std::unique_lock lock(mutex_);
  while (!tasks_.empty()) {
    {
      const Task task = std::move(tasks_.front());
      tasks_.pop_front();
      lock.unlock();
      task();
      // What the task holds is let go here, before the queue can count as idle.
    }
    lock.lock();
  }
  if (--workers_ == 0) {
    becameIdle_.notify_all();
  }
}
