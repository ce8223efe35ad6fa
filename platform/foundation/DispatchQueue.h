#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "platform/api.h"

/// A serial queue of work off the main thread: tasks run one at a time, in the order in which they
/// were added. All queues share a small pool of threads, which is made when there is first
/// something to do; a queue without tasks costs none. Any thread.
class PLATFORM_API DispatchQueue : public std::enable_shared_from_this<DispatchQueue> {
 public:
  using Task = std::function<void()>;

  /// dispatch_queue_create without attributes. The label is for people who look for faults.
  static std::shared_ptr<DispatchQueue> createSerial(std::string label);

  DispatchQueue(const DispatchQueue&) = delete;
  DispatchQueue& operator=(const DispatchQueue&) = delete;
  DispatchQueue(DispatchQueue&&) = delete;
  DispatchQueue& operator=(DispatchQueue&&) = delete;
  ~DispatchQueue() = default;

  const std::string& label() const { return label_; }

  /// Adds a task; the queue lives until it has run.
  void async(Task task);

  /// Waits until no queue has anything left to run. Not from within a task.
  static void waitUntilAllIdle();
  static bool areAllIdle();

 private:
  explicit DispatchQueue(std::string label) : label_(std::move(label)) {}

  void runNext();

  const std::string label_;
  std::mutex mutex_;
  std::deque<Task> tasks_;  // guarded by mutex_
  bool scheduled_ = false;  // guarded by mutex_: waits for a thread, or runs on one
};
