#include "platform/foundation/DispatchQueue.h"

#include <utility>

#include "platform/foundation/DispatchPool.h"

std::shared_ptr<DispatchQueue> DispatchQueue::createSerial(std::string label) {
  return std::shared_ptr<DispatchQueue>(new DispatchQueue(std::move(label)));
}

void DispatchQueue::async(Task task) {
  const std::lock_guard lock(mutex_);
  tasks_.push_back(std::move(task));
  if (!std::exchange(scheduled_, true)) {
    DispatchPool::shared().add([self = shared_from_this()] { self->runNext(); });
  }
}

void DispatchQueue::waitUntilAllIdle() {
  DispatchPool::shared().waitUntilIdle();
}

bool DispatchQueue::areAllIdle() {
  return DispatchPool::shared().isIdle();
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
    DispatchPool::shared().add([self = shared_from_this()] { self->runNext(); });
  }
}
