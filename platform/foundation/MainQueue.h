#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/api.h"
#include "platform/foundation/NSObject.h"

/// The queue of the main thread: tasks in the order in which they were added, and delayed calls by
/// their deadline on the installed clock. A host (a window's loop, a script driver, a test) runs
/// it.
class PLATFORM_API MainQueue {
 public:
  using Task = std::function<void()>;

  static MainQueue& shared();

  MainQueue(const MainQueue&) = delete;
  MainQueue& operator=(const MainQueue&) = delete;
  MainQueue(MainQueue&&) = delete;
  MainQueue& operator=(MainQueue&&) = delete;

  /// The thread that first uses the queue is the main thread.
  bool isCurrent() const;

  /// Adds a task. Any thread.
  void async(Task task);

  /// Sends `selector` to `target` with `argument` once, `delay` seconds from now; the call keeps
  /// the target alive. Calls with the same deadline run in the order in which they were made. A
  /// selector that nobody answers for does nothing. Main thread.
  void performSelectorWithObjectAfterDelay(const std::shared_ptr<NSObject>& target,
                                           std::string_view selector,
                                           const std::shared_ptr<NSObject>& argument, double delay);

  /// Forgets every delayed call to the target. Main thread.
  void cancelPreviousPerformRequestsWithTarget(const NSObject& target);
  /// Forgets the delayed calls of that selector with an equal argument. Main thread.
  void cancelPreviousPerformRequestsWithTargetSelectorObject(
      const NSObject& target, std::string_view selector, const std::shared_ptr<NSObject>& argument);

  /// Runs the tasks that are here and the delayed calls that are due; what they add waits for the
  /// next turn. True when something is left to run now. Main thread, not from within a task.
  bool runTurn();

  /// Runs turns until nothing is due at the clock's time. Main thread, not from within a task.
  void drain();

  /// Whether nothing is to run at the clock's time. Main thread.
  bool isIdle() const;

  /// When the next delayed call is due, in seconds of the clock; nothing when there is none.
  /// Main thread.
  std::optional<double> nextDeadline() const;

  /// Called, from any thread, when there may be something to run sooner than the host knows of.
  /// At most one hook, empty for none. Any thread.
  void setWakeHook(Task hook);

 private:
  struct DelayedCall {
    double deadline = 0;
    std::shared_ptr<NSObject> target;
    std::string selector;
    std::shared_ptr<NSObject> argument;
  };

  MainQueue();
  void wake();
  void collectDueCalls();

  const std::thread::id thread_;
  mutable std::mutex mutex_;
  std::deque<Task> tasks_;            // guarded by mutex_
  Task wakeHook_;                     // guarded by mutex_
  std::vector<DelayedCall> delayed_;  // main thread only, by deadline
};
