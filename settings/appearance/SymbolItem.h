#pragma once

#include <QColor>
#include <QQuickPaintedItem>

/// A line-drawn sign of the window's own, crisp at every scale. Forward and Back point where the
/// window's direction has them.
class SymbolItem : public QQuickPaintedItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(Symbol symbol MEMBER symbol_ NOTIFY changed)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  /// Width of the line.
  Q_PROPERTY(qreal stroke MEMBER stroke_ NOTIFY changed)

 public:
  // As QML has it, with a capital. NOLINTNEXTLINE(readability-identifier-naming)
  enum class Symbol { Forward, Back, Checkmark, Cross };
  Q_ENUM(Symbol)

  explicit SymbolItem(QQuickItem* parent = nullptr);

  void paint(QPainter* painter) override;

 signals:
  void changed();

 private:
  Symbol symbol_ = Symbol::Forward;
  QColor color_;
  qreal stroke_ = 2;
};
