#pragma once

#include <QImage>
#include <QObject>
#include <QQuickView>
#include <QSize>
#include <memory>

#include "settings/mirror/ViewMirror.h"
#include "settings/navigation/Navigation.h"
#include "settings/pictures/PictureProvider.h"
#include "settings/qml/QmlRuntime.h"
#include "settings/services/MainQueueHost.h"
#include "settings/services/WebPages.h"
#include "settings/services/WindowRefresh.h"
#include "settings/sheets/Sheets.h"
#include "settings/window/TapListener.h"
#include "settings/window/UnsavedNotice.h"

/// The application's window and all that keeps it up to date. Main thread.
class SettingsWindow : public QObject {
  Q_OBJECT

 public:
  /// `qml`, `sheets`, `unsaved` and `webPages` outlive the window.
  SettingsWindow(QmlRuntime& qml, Sheets& sheets, UnsavedNotice& unsaved, WebPages& webPages,
                 PictureProvider::PathResolver resolvePicture, QSize size);
  ~SettingsWindow() override;
  Q_DISABLE_COPY_MOVE(SettingsWindow)

  Navigation& navigation() { return navigation_; }

  /// What moves follows these refreshes, which follow the window.
  void follow(WindowRefresh& refresh);

  void show();
  /// As the user closes it: what is being typed is kept.
  void close() { view_.close(); }
  QSize size() const { return view_.size(); }
  void resize(QSize size);

  /// Height, in points, at which the top page is shown whole.
  int wholePageHeight();

  /// What is shown once all pictures are there and nothing is left to be done, whether or not the
  /// window is on a screen. A null image when the renderer cannot draw.
  QImage picture();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 signals:
  /// On the screen there is what the window now shows.
  void frameShown();
  /// A frame or a picture has shown all that the pages had to show.
  void pagesShown();

 private:
  void settle();
  void tellPagesShown();

  MainQueueHost queue_;
  ViewMirror mirror_;
  Navigation navigation_;
  QQuickView view_;
  TapListener taps_{view_};
};
