#include "platform/foundation/GlobalQueue.h"

#include <utility>

namespace {

constexpr std::size_t kMostThreads = 64;

}  // namespace

GlobalQueue& GlobalQueue::shared() {
  // Never destroyed: tasks may still run while the process ends.
  static auto* queue = new GlobalQueue;  // NOLINT(cppcoreguidelines-owning-memory)
  return *queue;
}

GlobalQueue::GlobalQueue() : pool_(kMostThreads) {}

void GlobalQueue::async(Task task) {
  pool_.add(std::move(task));
}

bool GlobalQueue::isIdle() const {
  return pool_.isIdle();
}

void GlobalQueue::waitUntilIdle() {
  pool_.waitUntilIdle();
}
