#pragma once

#include <functional>
#include <string>

#include "linux/lines/CallDesk.h"

/// Offers and places calls without waiting: answers come later, as calls of `answer` on the main
/// thread. An answer may come after whoever asked has gone: `answer` has to see to that. Main
/// thread.
class CallService {
 public:
  CallService() = default;
  CallService(const CallService&) = delete;
  CallService& operator=(const CallService&) = delete;
  CallService(CallService&&) = delete;
  CallService& operator=(CallService&&) = delete;
  virtual ~CallService() = default;

  virtual void offer(const std::string& text, std::function<void(CallOffer)> answer) = 0;

  /// Once: nothing that was asked for is ever tried a second time by itself.
  virtual void place(const std::string& text, bool isAnonymous, const CallPlan& agreed,
                     std::function<void(CallResult)> answer) = 0;

  /// Keeps a call that is being placed from leaving, where it has not left yet.
  virtual void giveUp() = 0;
};
