#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <memory>

#include "linux/FileDescriptor.h"

/// A screen of which this user has one at a time, whatever process shows it. A process that comes
/// later can only knock: nothing goes from one to the other but that. Kept in $XDG_RUNTIME_DIR;
/// where there is no such folder everybody has the screen. Main thread.
class SoleScreen : public QObject {
  Q_OBJECT

 public:
  enum class Otherwise { Knock, Nothing };

  /// `name` is a part of a file's name.
  explicit SoleScreen(const QString& name);
  ~SoleScreen() override;
  Q_DISABLE_COPY_MOVE(SoleScreen)

  /// Whether this process has the screen now. Never waits for long, and needs no event loop.
  bool take(Otherwise otherwise);
  void giveBack();

  /// Starts to tell who knocks, and who has knocked since the screen was taken.
  void listen();

 signals:
  void knocked();

 private:
  bool takeAlone(Otherwise otherwise);
  void hear();

  std::string path_;  // of the socket; empty for none
  FileDescriptor socket_;
  std::unique_ptr<QSocketNotifier> notifier_;
};
