#pragma once

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QString>

class QPointingDevice;

/// A touch screen with one finger, which no X server has for itself. Lines read from a named pipe
/// say what the finger does: `press X Y`, `move X Y`, `release X Y`, in points of the screen. Each
/// is handed to the window under it before the next one is read. Main thread.
class TouchScreen : public QObject {
  Q_OBJECT

 public:
  /// `pipe` is the path of a named pipe that is there; a line that makes no sense ends the program.
  explicit TouchScreen(const QString& pipe);

 private:
  void read();
  void obey(const QByteArray& line);

  QByteArray rest_;  // of a line that has not come whole
  QPointingDevice* const device_;
  QSocketNotifier notifier_;
};
