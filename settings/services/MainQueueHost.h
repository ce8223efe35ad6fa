#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

/// Runs the main queue on the toolkit's event loop: one turn for each time that something is to
/// run, a timer for the next delayed call, nothing while there is nothing to do. Main thread.
class MainQueueHost : public QObject {
  Q_OBJECT

 public:
  MainQueueHost();
  ~MainQueueHost() override;
  Q_DISABLE_COPY_MOVE(MainQueueHost)

 signals:
  /// Tasks or delayed calls have run.
  void turned();

 protected:
  bool event(QEvent* event) override;

 private:
  class Waker;

  void runTurn();

  std::shared_ptr<Waker> waker_;
  QTimer timer_;
};
