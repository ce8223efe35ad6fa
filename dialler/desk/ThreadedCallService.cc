#include "dialler/desk/ThreadedCallService.h"

#include <QMetaObject>
#include <utility>

ThreadedCallService::ThreadedCallService(CallDesk::Terms terms) : desk_(std::move(terms)) {
  thread_.setMaxThreadCount(1);
}

ThreadedCallService::~ThreadedCallService() {
  giveUp();
  thread_.clear();
  thread_.waitForDone();
}

void ThreadedCallService::offer(const std::string& text, std::function<void(CallOffer)> answer) {
  thread_.start([this, text, answer = std::move(answer)] {
    QMetaObject::invokeMethod(
        &home_, [answer, offer = desk_.offer(text)] { answer(offer); }, Qt::QueuedConnection);
  });
}

void ThreadedCallService::place(const std::string& text, bool isAnonymous, const CallPlan& agreed,
                                std::function<void(CallResult)> answer) {
  // Each call has a wish of its own to be given up: one that comes too late is not the next one's.
  givenUp_ = std::make_shared<std::atomic<bool>>(false);
  thread_.start([this, text, isAnonymous, agreed, answer = std::move(answer), givenUp = givenUp_] {
    const auto result =
        desk_.place(text, isAnonymous, agreed, [givenUp] { return givenUp->load(); });
    QMetaObject::invokeMethod(
        &home_, [answer, result] { answer(result); }, Qt::QueuedConnection);
  });
}
