#include "settings/SettingsWindow.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QQuickItem>
#include <QResizeEvent>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "platform/foundation/GlobalQueue.h"
#include "platform/foundation/MainQueue.h"
#include "platform/preferences/PSListController.h"
#include "settings/WebViewItem.h"

namespace {

// Pictures of a page that are not there by then are left out, in milliseconds.
constexpr int kLongestSettling = 5000;
constexpr int kBarHeight = 44;

bool isLoading(const QQuickItem& item) {
  constexpr int kImageLoading = 2;
  if (item.inherits("QQuickImage") && item.property("status").toInt() == kImageLoading) {
    return true;
  }
  if (const auto* page = qobject_cast<const WebViewItem*>(&item); page && page->isLoading()) {
    return true;
  }
  for (const auto* child : item.childItems()) {
    if (isLoading(*child)) {
      return true;
    }
  }
  return false;
}

}  // namespace

SettingsWindow::SettingsWindow(Sheets& sheets, WebPages& webPages,
                               PictureProvider::PathResolver resolvePicture, QSize size)
    : mirror_(engine_), view_(&engine_, nullptr) {
  engine_.addImageProvider(QLatin1String(PictureProvider::kName),
                           new PictureProvider(std::move(resolvePicture)));
  engine_.setProperty("viewMirror", QVariant::fromValue(&mirror_));
  engine_.setProperty("webPages", QVariant::fromValue(&webPages));
  view_.setTitle(QStringLiteral("Settings"));
  view_.setResizeMode(QQuickView::SizeRootObjectToView);
  view_.resize(size);
  view_.setInitialProperties({{QStringLiteral("navigation"), QVariant::fromValue(&navigation_)},
                              {QStringLiteral("sheets"), QVariant::fromValue(&sheets)}});
  view_.setSource(QUrl(QStringLiteral("qrc:/QuietDial/Settings/Main.qml")));
  if (view_.status() != QQuickView::Ready) {
    // The toolkit has told which QML module is missing.
    std::exit(EXIT_FAILURE);
  }
  view_.installEventFilter(this);
  connect(&queue_, &MainQueueHost::turned, &mirror_, &ViewMirror::scheduleCommit);
  connect(&mirror_, &ViewMirror::committed, &navigation_, &Navigation::refresh);
}

SettingsWindow::~SettingsWindow() {
  view_.removeEventFilter(this);
}

void SettingsWindow::show() {
  view_.show();
  view_.requestActivate();
}

bool SettingsWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Close) {
    navigation_.endEditing();
  }
  return QObject::eventFilter(watched, event);
}

void SettingsWindow::resize(QSize size) {
  QResizeEvent event(size, view_.size());
  view_.resize(size);
  if (!view_.isVisible()) {
    // A window that was never shown is not told of its size.
    QCoreApplication::sendEvent(&view_, &event);
  }
}

int SettingsWindow::wholePageHeight() {
  settle();
  const auto list = cast<PSListController>(navigation_.topPage());
  const double content = list ? list->table()->contentSize().height : 0;
  return kBarHeight + static_cast<int>(std::ceil(content));
}

void SettingsWindow::settle() {
  QElapsedTimer time;
  time.start();
  do {
    if (isLoading(*view_.contentItem()) && !view_.isVisible()) {
      view_.show();  // the web engine draws only into a window that is shown
    }
    MainQueue::shared().drain();
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    mirror_.commit();
  } while (
      (mirror_.isPending() || !GlobalQueue::shared().isIdle() || isLoading(*view_.contentItem())) &&
      !time.hasExpired(kLongestSettling));
}

QImage SettingsWindow::picture() {
  settle();
  return view_.grabWindow();
}
