#include "settings/services/WindowRefresh.h"

#include <QEvent>
#include <QLoggingCategory>
#include <QQuickWindow>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/quartzcore/CADisplayLink.h"

// For people who look for stutter: QT_LOGGING_RULES=quietdial.refresh.debug=true
Q_LOGGING_CATEGORY(refreshLog, "quietdial.refresh", QtInfoMsg)

namespace {

constexpr double kUsualRate = 60;
// Screens beyond these bounds do not know their rate.
constexpr double kLowestRate = 1;
constexpr double kHighestRate = 1000;

}  // namespace

WindowRefresh::WindowRefresh(double rate) : rate_(rate) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, &WindowRefresh::tick);
  turnEnd_.setSingleShot(true);
  connect(&turnEnd_, &QTimer::timeout, this, &WindowRefresh::startOrStop);
}

void WindowRefresh::follow(QQuickWindow& window) {
  window_ = &window;
  window.installEventFilter(this);
  connect(&window, &QQuickWindow::afterAnimating, this, &WindowRefresh::tick);
  connect(&window, &QWindow::screenChanged, this, &WindowRefresh::restart);
  startOrStop();
}

void WindowRefresh::setWanted(bool wanted) {
  wanted_ = wanted;
  if (wanted) {
    startOrStop();
    return;
  }
  // Not before the turn is over: where one animation takes another's place the count goes on, or
  // those that are replaced quickly would never be refreshed at all.
  turnEnd_.start();
}

bool WindowRefresh::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Expose || event->type() == QEvent::Hide) {
    startOrStop();
  }
  return QObject::eventFilter(watched, event);
}

void WindowRefresh::startOrStop() {
  const bool run = wanted_ && window_ && window_->isExposed();
  if (std::exchange(running_, run) == run) {
    return;
  }
  qCDebug(refreshLog) << (run ? "starts" : "stops");
  if (run) {
    restart();
  } else {
    timer_.stop();
  }
}

void WindowRefresh::restart() {
  if (!running_) {
    return;
  }
  pacer_.start(services().clock->now(), interval());
  tick();
}

double WindowRefresh::interval() const {
  const double rate = rate_ > 0 ? rate_ : window_->screen()->refreshRate();
  return 1 / (rate >= kLowestRate && rate <= kHighestRate ? rate : kUsualRate);
}

void WindowRefresh::tick() {
  if (!running_) {
    return;
  }
  int due = pacer_.take(services().clock->now());
  if (due > 0) {
    qCDebug(refreshLog) << "refreshes" << due;
    for (; due > 0; --due) {
      CADisplayLink::screenDidRefresh(pacer_.interval());
    }
    emit refreshed();
  }
  // What was called may have ended the last animation.
  if (running_) {
    const double wait = pacer_.nextDue() - services().clock->now();
    timer_.start(static_cast<int>(std::max(std::ceil(wait * 1000), 0.0)));
  }
}
