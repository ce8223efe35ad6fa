#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "headless/RecordingMail.h"

class QImage;
class SettingsWindow;

/// Pictures of every page that rows lead to and of what stands above them, and an index over these.
class Tour {
 public:
  /// `mail` is the installed mail service.
  Tour(SettingsWindow& window, RecordingMail& mail, QString folder);

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
  bool takePicturesOfSheets();
  bool save(const QImage& image, const QString& name, const QString& title);
  bool writeIndex();

  SettingsWindow& window_;
  RecordingMail& mail_;
  QString folder_;
  QString error_;
  QStringList visited_;
  QList<Picture> pictures_;
};
