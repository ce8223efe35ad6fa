#include "settings/appearance/SymbolItem.h"

#include <QPainter>
#include <QPainterPath>

#include "settings/appearance/Appearance.h"

SymbolItem::SymbolItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
  setAntialiasing(true);
  connect(this, &SymbolItem::changed, this, [this] { update(); });
}

void SymbolItem::paint(QPainter* painter) {
  // The line's ends stay inside the item.
  const qreal edge = stroke_ / 2;
  const QRectF box = QRectF(0, 0, width(), height()).adjusted(edge, edge, -edge, -edge);
  const qreal middle = box.center().y();
  QPainterPath path;
  switch (symbol_) {
    case Symbol::Forward:
      path.moveTo(box.topLeft());
      path.lineTo(box.right(), middle);
      path.lineTo(box.bottomLeft());
      break;
    case Symbol::Back:
      path.moveTo(box.topRight());
      path.lineTo(box.left(), middle);
      path.lineTo(box.bottomRight());
      break;
    case Symbol::Checkmark:
      path.moveTo(box.left(), box.top() + box.height() * 0.55);
      path.lineTo(box.left() + box.width() * 0.35, box.bottom());
      path.lineTo(box.topRight());
      break;
    case Symbol::Cross:
      path.moveTo(box.topLeft());
      path.lineTo(box.bottomRight());
      path.moveTo(box.topRight());
      path.lineTo(box.bottomLeft());
      break;
  }
  if (symbol_ != Symbol::Checkmark && Appearance::shared().isMirrored()) {
    painter->translate(width(), 0);
    painter->scale(-1, 1);
  }
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(color_, stroke_, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter->drawPath(path);
}
