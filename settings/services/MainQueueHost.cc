#include "settings/services/MainQueueHost.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <cmath>
#include <limits>
#include <mutex>

#include "platform/foundation/MainQueue.h"
#include "platform/services.h"

namespace {

QEvent::Type turnEvent() {
  static const auto kType = static_cast<QEvent::Type>(QEvent::registerEventType());
  return kType;
}

}  // namespace

/// Posts at most one event at a time. Workers may hold it longer than the host lives.
class MainQueueHost::Waker {
 public:
  explicit Waker(QObject* host) : host_(host) {}

  void wake() {
    const std::lock_guard lock(mutex_);
    if (host_ && !posted_) {
      posted_ = true;
      QCoreApplication::postEvent(host_, new QEvent(turnEvent()));
    }
  }
  void turnBegins() {
    const std::lock_guard lock(mutex_);
    posted_ = false;
  }
  void hostGoes() {
    const std::lock_guard lock(mutex_);
    host_ = nullptr;
  }

 private:
  std::mutex mutex_;
  QObject* host_;        // guarded by mutex_
  bool posted_ = false;  // guarded by mutex_
};

MainQueueHost::MainQueueHost() : waker_(std::make_shared<Waker>(this)) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, &MainQueueHost::runTurn);
  MainQueue::shared().setWakeHook([waker = waker_] { waker->wake(); });
  waker_->wake();
}

MainQueueHost::~MainQueueHost() {
  MainQueue::shared().setWakeHook({});
  waker_->hostGoes();
}

bool MainQueueHost::event(QEvent* event) {
  if (event->type() != turnEvent()) {
    return QObject::event(event);
  }
  runTurn();
  return true;
}

void MainQueueHost::runTurn() {
  waker_->turnBegins();
  timer_.stop();
  auto& queue = MainQueue::shared();
  if (queue.runTurn()) {
    waker_->wake();
  } else if (const auto deadline = queue.nextDeadline()) {
    const double milliseconds = std::ceil((*deadline - services().clock->now()) * 1000);
    constexpr double kLongest = std::numeric_limits<int>::max();
    timer_.start(static_cast<int>(std::clamp(milliseconds, 0.0, kLongest)));
  }
  emit turned();
}
