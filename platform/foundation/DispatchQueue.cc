#include "platform/foundation/DispatchQueue.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "platform/foundation/DispatchPool.h"

namespace {

// As many threads as there are processors, and not many: the queues' work is decoding, which more
// threads do not speed up.
DispatchPool& pool() {
  static auto* pool =  // NOLINT(cppcoreguidelines-owning-memory): never destroyed
      new DispatchPool(std::clamp<std::size_t>(std::thread::hardware_concurrency(), 2, 4));
  return *pool;
}

}  // namespace

std::shared_ptr<DispatchQueue> DispatchQueue::createSerial(std::string label) {
  return std::shared_ptr<DispatchQueue>(new DispatchQueue(std::move(label)));
}

void DispatchQueue::async(Task task) {
  const std::lock_guard lock(mutex_);
  tasks_.push_back(std::move(task));
  if (!std::exchange(scheduled_, true)) {
    pool().add([self = shared_from_this()] { self->runNext(); });
  }
}

void DispatchQueue::waitUntilAllIdle() {
  pool().waitUntilIdle();
}

bool DispatchQueue::areAllIdle() {
  return pool().isIdle();
}

void DispatchQueue::runNext() {
  Task task;
  {
    const std::lock_guard lock(mutex_);
    task = std::move(tasks_.front());
    tasks_.pop_front();
  }
  task();
  task = nullptr;
  const std::lock_guard lock(mutex_);
  scheduled_ = !tasks_.empty();
  if (scheduled_) {
    // To the end of the line: a long queue does not keep the others waiting.
    pool().add([self = shared_from_this()] { self->runNext(); });
  }
}
