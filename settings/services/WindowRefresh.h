#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

#include "platform/services.h"
#include "settings/services/RefreshPacer.h"

class QQuickWindow;

/// The refreshes of the screen that the window is on, at that screen's rate.
///
/// The toolkit's own frames come at any rate: hardly ever while nothing changes, more often than
/// the screen refreshes where nothing holds them back. So refreshes are counted on the clock. They
/// are handed out in the window's frames, to be in step with them, and by a timer where no frame
/// comes in time, so that nothing has to be drawn just to keep the count. While no refresh is
/// wanted, or the window is not seen, there is no timer. Main thread.
class WindowRefresh : public QObject, public DisplayRefresh {
  Q_OBJECT

 public:
  /// `rate` in refreshes a second stands in for the screen's; 0 for the screen's own.
  explicit WindowRefresh(double rate);

  /// Refreshes come from now on if that window is seen.
  void follow(QQuickWindow& window);

  void setWanted(bool wanted) override;

 signals:
  /// What hangs on the refresh has been told of it.
  void refreshed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void startOrStop();
  void restart();
  void tick();
  double interval() const;

  const double rate_;
  QPointer<QQuickWindow> window_;
  QTimer timer_;
  QTimer turnEnd_;
  RefreshPacer pacer_;
  bool wanted_ = false;
  bool running_ = false;
};
