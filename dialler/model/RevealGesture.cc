#include "dialler/model/RevealGesture.h"

#include <QElapsedTimer>
#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr qreal kEnough = 0.5;

RevealGesture::Clock runningClock() {
  QElapsedTimer timer;
  timer.start();
  return [timer] { return timer.elapsed(); };
}

}  // namespace

RevealGesture::RevealGesture(QObject* parent) : RevealGesture(runningClock(), parent) {}

RevealGesture::RevealGesture(Clock clock, QObject* parent)
    : QObject(parent), clock_(std::move(clock)) {}

void RevealGesture::setMode(int mode) {
  if (mode != mode_) {
    mode_ = mode;
    revealed_ = false;
    end();
  }
}

void RevealGesture::press(QPointF place) {
  pressed_ = true;
  moved_ = false;
  done_ = false;
  start_ = place;
  pressedAt_ = clock_();
  emit changed();
}

void RevealGesture::move(QPointF place) {
  if (!pressed_ || done_) {
    return;
  }
  const QPointF way = place - start_;
  const qreal across = std::abs(way.x());
  moved_ = moved_ || across > kSlop || std::abs(way.y()) > kSlop;
  if (!moved_ || isRevealed()) {
    return;
  }
  if (mode_ == Hold) {
    done_ = true;
    fill_ = 0;
  } else {
    pull_ = std::clamp((across - kSlop) / std::max(distance_ - kSlop, 1.0), 0.0, 1.0);
  }
  emit changed();
}

void RevealGesture::tick() {
  if (!pressed_ || done_ || isRevealed() || mode_ != Hold) {
    return;
  }
  const auto held = static_cast<qreal>(clock_() - pressedAt_ - kTapTime);
  fill_ = std::clamp(held / kHoldTime, 0.0, 1.0);
  if (fill_ >= 1) {
    done_ = true;
    revealed_ = true;
  }
  emit changed();
}

void RevealGesture::release() {
  if (!pressed_) {
    return;
  }
  tick();
  const bool isGivenUpHold = mode_ == Hold && fill_ > 0;
  const bool isTap = !done_ && !moved_ && !isGivenUpHold;
  if (!isRevealed() && mode_ == Swipe && pull_ >= kEnough) {
    revealed_ = true;
  }
  end();
  if (isTap) {
    emit tapped();
  }
}

void RevealGesture::cancel() {
  end();
}

void RevealGesture::reveal() {
  revealed_ = true;
  end();
}

void RevealGesture::hide() {
  revealed_ = false;
  end();
}

void RevealGesture::end() {
  pressed_ = false;
  pull_ = 0;
  fill_ = 0;
  emit changed();
}
