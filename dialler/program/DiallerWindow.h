#pragma once

#include <QImage>
#include <QObject>
#include <QQuickView>

#include "dialler/model/CallScreen.h"
#include "dialler/model/Keypad.h"
#include "linux/DevicePaths.h"
#include "settings/qml/QmlRuntime.h"

/// The window with the keypad, the call screen, or both. Main thread.
class DiallerWindow : public QObject {
  Q_OBJECT

 public:
  /// All are kept by reference; without a keypad `keypad` is null.
  DiallerWindow(QmlRuntime& qml, CallScreen& screen, Keypad* keypad, const DevicePaths& paths,
                QSize size);
  ~DiallerWindow() override;
  Q_DISABLE_COPY_MOVE(DiallerWindow)

  /// The files that it is made of.
  static QList<QUrl> sources();

  void show();
  /// Before the eyes of a user who asks for it once more.
  void raise();
  void close() { view_.close(); }
  /// What is shown, once nothing is waited for any more.
  QImage picture();

 signals:
  void closing();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  CallScreen& screen_;
  QQuickView view_;
};
