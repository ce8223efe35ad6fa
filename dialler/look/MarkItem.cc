#include "dialler/look/MarkItem.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>

namespace {

constexpr qreal kHandsetTurn = -135;
constexpr int kSixteenthsOfADegree = 16;

// The right half of a lying receiver from the middle of its back round its cup to the middle of its
// arch, and its mirror image back again; one wide to each side, centred.
QPainterPath receiver() {
  struct Step {
    QPointF first, second, end;
  };
  constexpr QPointF kStart(0, -0.42);
  constexpr std::array kSteps{
      Step{{0.50, -0.42}, {1.0, -0.28}, {1.0, 0.14}},
      Step{{1.0, 0.21}, {1.0, 0.24}, {1.0, 0.27}},
      Step{{1.0, 0.37}, {0.93, 0.42}, {0.84, 0.41}},
      Step{{0.78, 0.403}, {0.73, 0.395}, {0.67, 0.385}},
      Step{{0.58, 0.37}, {0.525, 0.32}, {0.515, 0.23}},
      Step{{0.505, 0.15}, {0.50, 0.10}, {0.48, 0.02}},
      Step{{0.33, -0.045}, {0.17, -0.075}, {0.0, -0.075}},
  };
  const auto mirrored = [](QPointF point) { return QPointF(-point.x(), point.y()); };
  QPainterPath path(kStart);
  for (const auto& step : kSteps) {
    path.cubicTo(step.first, step.second, step.end);
  }
  for (std::size_t i = kSteps.size(); i-- > 0;) {
    const QPointF end = i > 0 ? kSteps[i - 1].end : kStart;
    path.cubicTo(mirrored(kSteps[i].second), mirrored(kSteps[i].first), mirrored(end));
  }
  path.closeSubpath();
  path.translate(0, -0.09);
  return path;
}

}  // namespace

MarkItem::MarkItem(QQuickItem* parent) : QQuickPaintedItem(parent) {
  setAntialiasing(true);
  connect(this, &MarkItem::changed, this, [this] { update(); });
}

void MarkItem::paint(QPainter* painter) {
  const qreal size = std::min(width(), height());
  const qreal half = size / 2;
  painter->setRenderHint(QPainter::Antialiasing);
  painter->translate(width() / 2, height() / 2);
  painter->setPen(Qt::NoPen);
  painter->setBrush(color_);
  const QPen line(color_, stroke_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  switch (mark_) {
    case Mark::Handset:
      painter->rotate(kHandsetTurn);
      painter->scale(half, half);
      painter->drawPath(receiver());
      break;
    case Mark::HungUp:
      painter->scale(half, half);
      painter->drawPath(receiver());
      break;
    case Mark::Portrait: {
      QPainterPath round;
      round.addEllipse(QPointF(), half, half);
      painter->fillPath(round, ground_);
      QPainterPath bust;
      bust.addEllipse(QPointF(0, half * 0.98), half * 0.74, half * 0.74);
      QPainterPath head;
      head.addEllipse(QPointF(0, -half * 0.17), half * 0.36, half * 0.36);
      painter->drawPath(round.intersected(bust));
      painter->drawPath(head);
      break;
    }
    case Mark::Eraser: {
      const qreal height = size * 0.72;
      const QPolygonF body{{{-half, 0},
                            {-size * 0.22, -height / 2},
                            {half, -height / 2},
                            {half, height / 2},
                            {-size * 0.22, height / 2}}};
      painter->scale(0.94, 0.94);
      painter->setPen(line);
      painter->drawPolygon(body);
      const qreal arm = height * 0.2;
      const QPointF middle(size * 0.12, 0);
      painter->setPen(QPen(ground_, 2, Qt::SolidLine, Qt::RoundCap));
      painter->drawLine(middle - QPointF(arm, arm), middle + QPointF(arm, arm));
      painter->drawLine(middle - QPointF(arm, -arm), middle + QPointF(arm, -arm));
      break;
    }
    case Mark::Arrows:
      painter->setPen(line);
      painter->setBrush(Qt::NoBrush);
      for (const qreal x : {-0.28 * size, 0.28 * size}) {
        const qreal arm = size * 0.22;
        painter->drawPolyline(QPolygonF{{{x + arm, -2 * arm}, {x - arm, 0}, {x + arm, 2 * arm}}});
      }
      break;
    case Mark::Ring: {
      const qreal radius = half - stroke_ / 2;
      const QRectF box(-radius, -radius, 2 * radius, 2 * radius);
      painter->setBrush(Qt::NoBrush);
      painter->setPen(QPen(ground_, stroke_));
      painter->drawEllipse(box);
      painter->setPen(line);
      painter->drawArc(box, 90 * kSixteenthsOfADegree,
                       static_cast<int>(-360 * part_ * kSixteenthsOfADegree));
      break;
    }
    case Mark::Star:
      painter->setPen(line);
      for (const int turn : {0, 60, 120}) {
        painter->save();
        painter->rotate(turn);
        const qreal arm = half - stroke_ / 2;
        painter->drawLine(QPointF(0, -arm), QPointF(0, arm));
        painter->restore();
      }
      break;
  }
}
