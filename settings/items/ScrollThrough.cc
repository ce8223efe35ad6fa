#include "settings/items/ScrollThrough.h"

#include <QCoreApplication>
#include <QWheelEvent>

void ScrollThrough::wheelEvent(QWheelEvent* event) {
  for (auto* item = parentItem(); item; item = item->parentItem()) {
    if (item->inherits("QQuickFlickable")) {
      QCoreApplication::sendEvent(item, event);
      break;
    }
  }
  event->accept();
}
