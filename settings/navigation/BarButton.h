#pragma once

#include <QObject>
#include <QSizeF>
#include <QString>
#include <QUrl>
#include <memory>
#include <qqmlintegration.h>

class UIBarButtonItem;

/// A button of the navigation bar, as QML sees it. Empty where the page has none.
class BarButton : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the application")
  Q_PROPERTY(bool present READ isPresent NOTIFY changed)
  Q_PROPERTY(bool enabled READ isEnabled NOTIFY changed)
  Q_PROPERTY(QUrl picture READ picture NOTIFY changed)
  Q_PROPERTY(qreal pictureWidth READ pictureWidth NOTIFY changed)
  Q_PROPERTY(qreal pictureHeight READ pictureHeight NOTIFY changed)
  Q_PROPERTY(QString name READ name NOTIFY changed)

 public:
  using QObject::QObject;

  /// Null for no button.
  void show(const std::shared_ptr<UIBarButtonItem>& item);

  bool isPresent() const { return item_ != nullptr; }
  bool isEnabled() const { return enabled_; }
  QUrl picture() const { return picture_; }
  qreal pictureWidth() const { return pictureSize_.width(); }
  qreal pictureHeight() const { return pictureSize_.height(); }
  QString name() const { return name_; }

  Q_INVOKABLE void press();

 signals:
  void changed();

 private:
  std::shared_ptr<UIBarButtonItem> item_;
  QUrl picture_;
  QSizeF pictureSize_;
  QString name_;
  bool enabled_ = false;
};
