#pragma once

#include <QQmlComponent>
#include <QQmlEngine>
#include <QString>
#include <QUrl>
#include <memory>
#include <vector>

/// What the window is made of. Reading it begins in the background when this object is made, so
/// that other things can be made ready meanwhile. One window uses it at a time. Main thread.
class Interface {
 public:
  Interface();
  Q_DISABLE_COPY_MOVE(Interface)
  ~Interface() = default;

  QQmlEngine& engine() { return engine_; }

  /// Where a type of the window's is written down.
  static QUrl source(const QString& type);

 private:
  QQmlEngine engine_;
  std::vector<std::unique_ptr<QQmlComponent>> components_;  // keep what has been read
};
