#include "settings/services/NotificationsHost.h"

#include <poll.h>
#include <utility>

NotificationsHost::NotificationsHost(std::shared_ptr<DBusNotifications> notifications)
    : notifications_(std::move(notifications)) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, &NotificationsHost::process);
  notifications_->setWantedChangedHook([this] { waitForWhatIsWanted(); });
  waitForWhatIsWanted();
}

NotificationsHost::~NotificationsHost() {
  notifications_->setWantedChangedHook({});
}

void NotificationsHost::process() {
  notifications_->process();
  waitForWhatIsWanted();
}

void NotificationsHost::waitForWhatIsWanted() {
  const auto wanted = notifications_->wanted();
  if (wanted.descriptor != watched_) {
    watch(wanted.descriptor);
  }
  if (readable_) {
    readable_->setEnabled((wanted.events & POLLIN) != 0);
    writable_->setEnabled((wanted.events & POLLOUT) != 0);
  }
  if (wanted.timeout >= 0) {
    timer_.start(wanted.timeout);
  } else {
    timer_.stop();
  }
}

void NotificationsHost::watch(int descriptor) {
  // One of them may be what calls this.
  for (auto* notifier : {readable_.release(), writable_.release()}) {
    if (notifier) {
      notifier->setEnabled(false);
      notifier->deleteLater();
    }
  }
  watched_ = descriptor;
  if (descriptor < 0) {
    return;
  }
  readable_ = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
  writable_ = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Write);
  for (const auto* notifier : {readable_.get(), writable_.get()}) {
    connect(notifier, &QSocketNotifier::activated, this, &NotificationsHost::process);
  }
}
