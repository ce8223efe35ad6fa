#pragma once

#include <QObject>
#include <QString>
#include <memory>
#include <qqmlintegration.h>

class UIAlertView;

/// An alert, as QML sees it.
class AlertModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the application")
  Q_PROPERTY(QString title READ title CONSTANT)
  Q_PROPERTY(QString message READ message CONSTANT)
  Q_PROPERTY(QString button READ button CONSTANT)

 public:
  explicit AlertModel(std::shared_ptr<UIAlertView> alert);

  QString title() const;
  QString message() const;
  QString button() const;

 private:
  std::shared_ptr<UIAlertView> alert_;
};
