#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <qqmlintegration.h>

/// The signs on the dialler's buttons, drawn for the item's size.
class MarkItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(Mark mark MEMBER mark_ NOTIFY changed)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  /// Under the ring; the portrait's ground; the cross in the eraser.
  Q_PROPERTY(QColor ground MEMBER ground_ NOTIFY changed)
  /// How much of a ring is there, from 0 to 1.
  Q_PROPERTY(qreal part MEMBER part_ NOTIFY changed)
  /// Width of the lines.
  Q_PROPERTY(qreal stroke MEMBER stroke_ NOTIFY changed)

 public:
  enum class Mark {
    Handset,
    HungUp,
    Portrait,
    Eraser,
    Arrows,  ///< To the left.
    Ring,
    Star,
  };
  Q_ENUM(Mark)

  explicit MarkItem(QQuickItem* parent = nullptr);

  void paint(QPainter* painter) override;

 signals:
  void changed();

 private:
  Mark mark_ = Mark::Handset;
  QColor color_ = Qt::white;
  QColor ground_ = Qt::transparent;
  qreal part_ = 1;
  qreal stroke_ = 2;
};
