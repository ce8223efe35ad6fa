#pragma once

#include <QList>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QString>
#include <QUrl>
#include <memory>
#include <vector>

/// The QML engine that the window is made with, and the types that it begins with. Compiling them
/// begins in the background when this object is made, so that other things can be made ready
/// meanwhile. One window uses it at a time. Main thread.
class QmlRuntime {
 public:
  /// `first` are the files of the types that the window begins with.
  explicit QmlRuntime(const QList<QUrl>& first);
  Q_DISABLE_COPY_MOVE(QmlRuntime)
  ~QmlRuntime() = default;

  QQmlEngine& engine() { return engine_; }

  /// Those of the Settings application's first page.
  static QList<QUrl> firstPage();

  /// The file of one of the window's types.
  static QUrl source(const QString& type);

 private:
  QQmlEngine engine_;
  std::vector<std::unique_ptr<QQmlComponent>> components_;  // keep what is compiled
};
