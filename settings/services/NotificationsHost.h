#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <memory>

#include "linux/DBusNotifications.h"

/// Drives the notifications between processes on the toolkit's event loop: waits for what they want
/// at the moment, lets them process, and asks again after that and after each post. Main thread.
class NotificationsHost : public QObject {
  Q_OBJECT

 public:
  /// Starts to wait at once; what arrives is delivered once the event loop runs.
  explicit NotificationsHost(std::shared_ptr<DBusNotifications> notifications);
  ~NotificationsHost() override;
  Q_DISABLE_COPY_MOVE(NotificationsHost)

 private:
  void process();
  void waitForWhatIsWanted();
  void watch(int descriptor);

  std::shared_ptr<DBusNotifications> notifications_;
  int watched_ = -1;
  std::unique_ptr<QSocketNotifier> readable_;
  std::unique_ptr<QSocketNotifier> writable_;
  QTimer timer_;
};
