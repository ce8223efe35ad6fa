#pragma once

#include <QObject>
#include <QString>
#include <memory>
#include <qqmlintegration.h>

#include "linux/UnsavedSettings.h"

/// What the window says of settings that could not be saved, as QML sees it. Main thread.
class UnsavedNotice : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the application")
  /// Whether there is anything to say.
  Q_PROPERTY(bool shown READ isShown NOTIFY changed)
  /// What has happened, with the reason as the system words it.
  Q_PROPERTY(QString sentence READ sentence NOTIFY changed)
  /// The settings, each once, by the names that people know.
  Q_PROPERTY(QString settings READ settings NOTIFY changed)
  /// In points of the page, by the user's text size.
  Q_PROPERTY(double textSize READ textSize NOTIFY changed)

 public:
  explicit UnsavedNotice(std::shared_ptr<UnsavedSettings> unsaved);
  ~UnsavedNotice() override;
  Q_DISABLE_COPY_MOVE(UnsavedNotice)

  bool isShown() const { return !unsaved_->isEmpty(); }
  QString sentence() const;
  QString settings() const;
  static double textSize();

  /// The user has read it. It comes back with the next write that fails.
  Q_INVOKABLE void close() { unsaved_->forget(); }

 signals:
  void changed();

 private:
  std::shared_ptr<UnsavedSettings> unsaved_;
};
