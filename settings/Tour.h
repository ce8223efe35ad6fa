#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class SettingsWindow;

/// Pictures of every page that rows lead to, and an index over them.
class Tour {
 public:
  Tour(SettingsWindow& window, QString folder);

  /// Starts on the window's first page and ends there. False when something could not be written
  /// or drawn; error() then says what.
  bool run();

  const QString& error() const { return error_; }

 private:
  struct Picture {
    QString file;
    QString title;
  };

  bool visit(int depth);
  bool takePicture();
  bool writeIndex();

  SettingsWindow& window_;
  QString folder_;
  QString error_;
  QStringList visited_;
  QList<Picture> pictures_;
};
