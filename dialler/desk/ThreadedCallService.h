#pragma once

#include <QObject>
#include <QThreadPool>
#include <atomic>
#include <memory>

#include "dialler/model/CallService.h"

/// Asks this machine's lines on a thread of its own, one question after the other. Main thread.
class ThreadedCallService final : public CallService {
 public:
  explicit ThreadedCallService(CallDesk::Terms terms);
  ThreadedCallService(const ThreadedCallService&) = delete;
  ThreadedCallService& operator=(const ThreadedCallService&) = delete;
  ThreadedCallService(ThreadedCallService&&) = delete;
  ThreadedCallService& operator=(ThreadedCallService&&) = delete;
  /// Gives up what has not left yet, and waits for what has: up to a minute.
  ~ThreadedCallService() override;

  void offer(const std::string& text, std::function<void(CallOffer)> answer) override;
  void place(const std::string& text, bool isAnonymous, const CallPlan& agreed,
             std::function<void(CallResult)> answer) override;
  void giveUp() override { *givenUp_ = true; }

 private:
  const CallDesk desk_;
  std::shared_ptr<std::atomic<bool>> givenUp_ = std::make_shared<std::atomic<bool>>(false);
  QObject home_;  // where answers arrive
  QThreadPool thread_;
};
