#pragma once

#include "platform/api.h"
#include "platform/foundation/DispatchPool.h"

/// The platform's global concurrent queue of high priority: tasks start in the order in which they
/// were added and run side by side. Any thread.
class PLATFORM_API GlobalQueue {
 public:
  using Task = DispatchPool::Work;

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
  GlobalQueue();

  DispatchPool pool_;
};
