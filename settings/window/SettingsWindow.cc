#include "settings/window/SettingsWindow.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QGuiApplication>
#include <QQuickItem>
#include <QResizeEvent>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/GlobalQueue.h"
#include "platform/foundation/MainQueue.h"
#include "platform/preferences/PSListController.h"
#include "settings/appearance/Appearance.h"
#include "settings/appearance/Theme.h"
#include "settings/items/WebViewItem.h"

namespace {

// Pictures of a page that are not there by then are left out, in milliseconds.
constexpr int kLongestSettling = 5000;
// A page of the web engine has been drawn when no frame comes for that long, in milliseconds.
constexpr int kQuiet = 200;

template <class Condition>
bool anyOf(const QQuickItem& item, const Condition& condition) {
  if (condition(item)) {
    return true;
  }
  const auto children = item.childItems();
  return std::ranges::any_of(children,
                             [&](const QQuickItem* child) { return anyOf(*child, condition); });
}

bool isLoadingPicture(const QQuickItem& item) {
  constexpr int kImageLoading = 2;
  return item.inherits("QQuickImage") && item.property("status").toInt() == kImageLoading;
}

bool isEnginePage(const QQuickItem& item) {
  const auto* page = qobject_cast<const WebViewItem*>(&item);
  return page && page->usesEngine() && page->hasLoaded();
}

bool isBusyPage(const QQuickItem& item) {
  const auto* page = qobject_cast<const WebViewItem*>(&item);
  return page && page->isBusy();
}

}  // namespace

SettingsWindow::SettingsWindow(QmlRuntime& qml, Sheets& sheets, UnsavedNotice& unsaved,
                               WebPages& webPages, PictureProvider::PathResolver resolvePicture,
                               QSize size)
    : mirror_(qml.engine()), view_(&qml.engine(), nullptr) {
  auto& engine = qml.engine();
  engine.addImageProvider(QLatin1String(PictureProvider::kName),
                          new PictureProvider(std::move(resolvePicture)));
  engine.setProperty("viewMirror", QVariant::fromValue(&mirror_));
  engine.setProperty("webPages", QVariant::fromValue(&webPages));
  view_.setTitle(QGuiApplication::applicationDisplayName());
  view_.setResizeMode(QQuickView::SizeRootObjectToView);
  view_.resize(size);
  view_.setInitialProperties({{QStringLiteral("navigation"), QVariant::fromValue(&navigation_)},
                              {QStringLiteral("sheets"), QVariant::fromValue(&sheets)},
                              {QStringLiteral("unsaved"), QVariant::fromValue(&unsaved)}});
  view_.setSource(QmlRuntime::source(QStringLiteral("Main")));
  if (view_.status() != QQuickView::Ready) {
    // The toolkit has told which QML module is missing.
    std::exit(EXIT_FAILURE);
  }
  view_.installEventFilter(this);
  connect(&taps_, &TapListener::tapped, &mirror_, &ViewMirror::recognizeTap);
  connect(&queue_, &MainQueueHost::turned, &mirror_, &ViewMirror::scheduleCommit);
  connect(&mirror_, &ViewMirror::committed, &navigation_, &Navigation::refresh);
  connect(&view_, &QQuickWindow::frameSwapped, this, &SettingsWindow::tellPagesShown);
  connect(&view_, &QQuickWindow::frameSwapped, this, &SettingsWindow::frameShown);
  connect(&Appearance::shared(), &Appearance::changed, &mirror_, &ViewMirror::bringOverAll);
}

SettingsWindow::~SettingsWindow() {
  view_.removeEventFilter(this);
}

void SettingsWindow::follow(WindowRefresh& refresh) {
  refresh.follow(view_);
  // What a refresh has changed is seen in the same frame.
  connect(&refresh, &WindowRefresh::refreshed, &mirror_, [this] {
    if (mirror_.isPending()) {
      mirror_.commit();
    }
  });
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
  return static_cast<int>(Theme::kBarHeight + std::ceil(content));
}

void SettingsWindow::settle() {
  QElapsedTimer time;
  time.start();
  const auto& content = *view_.contentItem();
  do {
    if (!view_.isVisible() && anyOf(content, isBusyPage)) {
      view_.show();  // the web engine draws only into a window that is shown
    }
    MainQueue::shared().drain();
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    mirror_.commit();
  } while ((mirror_.isPending() || !DispatchQueue::areAllIdle() ||
            !GlobalQueue::shared().isIdle() || anyOf(content, isLoadingPicture) ||
            anyOf(content, isBusyPage) || !MainQueue::shared().isIdle()) &&
           !time.hasExpired(kLongestSettling));
  if (anyOf(content, isEnginePage)) {
    // The engine draws what it has loaded a little later, in frames of its own.
    QElapsedTimer quiet;
    quiet.start();
    const auto frames =
        connect(&view_, &QQuickWindow::frameSwapped, this, [&quiet] { quiet.restart(); });
    while (!quiet.hasExpired(kQuiet) && !time.hasExpired(kLongestSettling)) {
      QCoreApplication::processEvents(QEventLoop::AllEvents, kQuiet / 4);
    }
    disconnect(frames);
  }
}

QImage SettingsWindow::picture() {
  settle();
  QImage image = view_.grabWindow();
  tellPagesShown();
  return image;
}

void SettingsWindow::tellPagesShown() {
  if (!mirror_.isPending()) {
    emit pagesShown();
  }
}
