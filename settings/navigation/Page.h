#pragma once

#include <QObject>
#include <QString>
#include <memory>
#include <qqmlintegration.h>

#include "settings/mirror/ViewSurface.h"
#include "settings/navigation/BarButton.h"

class UIViewController;

/// One page of the navigation stack, as QML sees it: its view, and what the bar shows for it.
class Page : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the application")
  Q_PROPERTY(ViewHandle view READ view CONSTANT)
  Q_PROPERTY(ViewHandle titleView READ titleView NOTIFY changed)
  Q_PROPERTY(bool hasTitleView READ hasTitleView NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  /// Title of the page under it; empty for the first page.
  Q_PROPERTY(QString backTitle MEMBER backTitle_ CONSTANT)
  Q_PROPERTY(BarButton* rightButton READ rightButton CONSTANT)

 public:
  Page(std::shared_ptr<UIViewController> controller, QString backTitle);

  UIViewController& controller() const { return *controller_; }
  ViewHandle view() const;
  ViewHandle titleView() const { return titleView_; }
  bool hasTitleView() const { return titleView_ != nullptr; }
  QString title() const { return title_; }
  BarButton* rightButton() { return &rightButton_; }

  /// Reads what the bar shows again; the frameworks do not tell when it changes.
  void refresh();

 signals:
  void changed();

 private:
  std::shared_ptr<UIViewController> controller_;
  QString backTitle_;
  QString title_;
  ViewHandle titleView_;
  BarButton rightButton_;
};
