#include "platform/foundation/MainQueue.h"

#include <algorithm>
#include <utility>

#include "platform/services.h"

MainQueue& MainQueue::shared() {
  // Never destroyed: objects may still be dropped while the process ends.
  static auto* queue = new MainQueue;  // NOLINT(cppcoreguidelines-owning-memory)
  return *queue;
}

MainQueue::MainQueue() : thread_(std::this_thread::get_id()) {}

bool MainQueue::isCurrent() const {
  return std::this_thread::get_id() == thread_;
}

void MainQueue::async(Task task) {
  {
    const std::lock_guard lock(mutex_);
    tasks_.push_back(std::move(task));
  }
  wake();
}

void MainQueue::performSelectorWithObjectAfterDelay(const std::shared_ptr<NSObject>& target,
                                                    std::string_view selector,
                                                    const std::shared_ptr<NSObject>& argument,
                                                    double delay) {
  const double deadline = services().clock->now() + delay;
  const auto later =
      std::upper_bound(delayed_.begin(), delayed_.end(), deadline,
                       [](double due, const DelayedCall& call) { return due < call.deadline; });
  delayed_.insert(later, {deadline, target, std::string(selector), argument});
  wake();
}

void MainQueue::cancelPreviousPerformRequestsWithTarget(const NSObject& target) {
  std::erase_if(delayed_, [&](const DelayedCall& call) { return call.target.get() == &target; });
}

void MainQueue::cancelPreviousPerformRequestsWithTargetSelectorObject(
    const NSObject& target, std::string_view selector, const std::shared_ptr<NSObject>& argument) {
  const auto hasArgument = [&](const DelayedCall& call) {
    return argument ? argument->isEqual(call.argument.get()) : !call.argument;
  };
  std::erase_if(delayed_, [&](const DelayedCall& call) {
    return call.target.get() == &target && call.selector == selector && hasArgument(call);
  });
}

bool MainQueue::runTurn() {
  collectDueCalls();
  std::deque<Task> turn;
  {
    const std::lock_guard lock(mutex_);
    turn.swap(tasks_);
  }
  while (!turn.empty()) {
    const Task task = std::move(turn.front());
    turn.pop_front();
    task();
  }
  return !isIdle();
}

bool MainQueue::isIdle() const {
  const auto deadline = nextDeadline();
  const std::lock_guard lock(mutex_);
  return tasks_.empty() && !(deadline && *deadline <= services().clock->now());
}

void MainQueue::drain() {
  while (runTurn()) {
  }
}

std::optional<double> MainQueue::nextDeadline() const {
  return delayed_.empty() ? std::nullopt : std::optional(delayed_.front().deadline);
}

void MainQueue::setWakeHook(Task hook) {
  const std::lock_guard lock(mutex_);
  wakeHook_ = std::move(hook);
}

void MainQueue::wake() {
  Task hook;
  {
    const std::lock_guard lock(mutex_);
    hook = wakeHook_;
  }
  if (hook) {
    hook();
  }
}

void MainQueue::collectDueCalls() {
  // Due calls are run one by one from the list, so that an earlier one can still cancel a later
  // one.
  const double now = delayed_.empty() ? 0 : services().clock->now();
  const auto due = std::count_if(delayed_.begin(), delayed_.end(),
                                 [now](const DelayedCall& call) { return call.deadline <= now; });
  const std::lock_guard lock(mutex_);
  for (auto remaining = due; remaining > 0; --remaining) {
    tasks_.emplace_back([this, now] {
      if (!delayed_.empty() && delayed_.front().deadline <= now) {
        const DelayedCall call = std::move(delayed_.front());
        delayed_.erase(delayed_.begin());
        call.target->performAction(call.selector, call.argument.get());
      }
    });
  }
}
