#pragma once

#include <QQuickItem>
#include <qqmlintegration.h>

/// Lies over an item that would keep the wheel to itself, and turns the list around it instead.
class ScrollThrough : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT

 public:
  using QQuickItem::QQuickItem;

 protected:
  void wheelEvent(QWheelEvent* event) override;
};
