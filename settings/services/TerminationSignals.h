#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <array>
#include <memory>

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into one of the toolkit's,
/// so that what is being typed is kept. Programs that this one starts keep the usual handling. One
/// at a time; main thread.
class TerminationSignals : public QObject {
  Q_OBJECT

 public:
  TerminationSignals();
  ~TerminationSignals() override;
  Q_DISABLE_COPY_MOVE(TerminationSignals)

 signals:
  void received();

 private:
  std::array<int, 2> pipe_{-1, -1};
  std::unique_ptr<QSocketNotifier> notifier_;
};
