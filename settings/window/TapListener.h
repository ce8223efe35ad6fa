#pragma once

#include <QObject>
#include <QPointF>
#include <optional>

class QPointerEvent;
class QQuickWindow;

/// Hears of each tap on a window, by mouse, finger or pen, before the item under it does and
/// whatever that does with it. A press that is held long, moves or is joined by another finger is
/// no tap. Main thread.
class TapListener : public QObject {
  Q_OBJECT

 public:
  /// The window outlives it.
  explicit TapListener(QQuickWindow& window);

 signals:
  /// The place is in the window.
  void tapped(QPointF place);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Press {
    QPointF place;
    quint64 time;
  };

  void follow(const QPointerEvent& event);
  bool isStillTap(const QPointerEvent& event) const;

  std::optional<Press> press_;
};
