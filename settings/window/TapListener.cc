#include "settings/window/TapListener.h"

#include <QGuiApplication>
#include <QPointerEvent>
#include <QPointingDevice>
#include <QQuickWindow>
#include <QStyleHints>

TapListener::TapListener(QQuickWindow& window) {
  window.installEventFilter(this);
}

bool TapListener::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease: {
      // What a finger does is told as mouse events again where nothing has taken it.
      const auto& mouse = static_cast<const QMouseEvent&>(*event);
      if (mouse.deviceType() != QInputDevice::DeviceType::TouchScreen) {
        follow(mouse);
      }
      break;
    }
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
      follow(static_cast<const QPointerEvent&>(*event));
      break;
    case QEvent::TouchCancel:
      press_.reset();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

void TapListener::follow(const QPointerEvent& event) {
  const auto& point = event.points().front();
  if (event.isBeginEvent() && event.pointCount() == 1) {
    press_ = Press{point.position(), event.timestamp()};
  }
  if (!isStillTap(event)) {
    press_.reset();
  } else if (event.isEndEvent()) {
    press_.reset();
    emit tapped(point.position());
  }
}

bool TapListener::isStillTap(const QPointerEvent& event) const {
  if (!press_ || event.pointCount() != 1) {
    return false;
  }
  if (event.isSinglePointEvent()) {
    // One button, and no other, from press to release.
    const auto& mouse = static_cast<const QSinglePointEvent&>(event);
    const auto buttons = mouse.buttons() | mouse.button();
    if (buttons != Qt::LeftButton) {
      return false;
    }
  }
  const auto& hints = *QGuiApplication::styleHints();
  const QPointF way = event.points().front().position() - press_->place;
  const auto held = event.timestamp() - press_->time;
  return way.manhattanLength() < hints.startDragDistance() &&
         held < static_cast<quint64>(hints.mousePressAndHoldInterval());
}
