#include "dialler/program/DiallerWindow.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <array>
#include <cstdlib>
#include <string>

#include "platform/uikit/UIFont.h"
#include "settings/pictures/PictureProvider.h"

namespace {

constexpr int kButtonPictures = 4;
constexpr double kUsualBody = 17;
constexpr int kLongestSettling = 10000;

constexpr std::array kTypes{"Dialler", "CallScreenView", "CallButtons", "DiscButton"};

QUrl source(const char* type) {
  return {QStringLiteral("qrc:/QuietDial/Dialler/%1.qml").arg(QLatin1String(type))};
}

// The templates of the button style page, in the colour of a button.
QVariantList pictures(const QColor& colour) {
  QVariantList urls;
  for (int number = 1; number <= kButtonPictures; ++number) {
    const std::string file = "/Library/PreferenceBundles/quietDialPreferences.bundle/GrayButton" +
                             std::to_string(number) + "@3x.png";
    urls.append(PictureProvider::urlForFile(file, colour));
  }
  return urls;
}

}  // namespace

QList<QUrl> DiallerWindow::sources() {
  QList<QUrl> urls;
  for (const char* type : kTypes) {
    urls.append(source(type));
  }
  return urls;
}

DiallerWindow::DiallerWindow(QmlRuntime& qml, CallScreen& screen, Keypad* keypad,
                             const DevicePaths& paths, QSize size)
    : screen_(screen), view_(&qml.engine(), nullptr) {
  const auto resolve = [paths](const std::string& path) {
    return paths.forReading(path).value_or("");
  };
  qml.engine().addImageProvider(QLatin1String(PictureProvider::kName),
                                new PictureProvider(resolve));
  // No number: the title is seen in lists of windows and by other programs.
  view_.setTitle(keypad ? tr("Keypad") : tr("Call"));
  view_.setResizeMode(QQuickView::SizeRootObjectToView);
  view_.resize(size);
  const double body = UIFont::preferredFontForTextStyle(UIFontTextStyle::kBody).pointSize;
  view_.setInitialProperties(
      {{QStringLiteral("callScreen"), QVariant::fromValue(&screen)},
       {QStringLiteral("keypad"), QVariant::fromValue(keypad)},
       {QStringLiteral("textScale"), body / kUsualBody},
       {QStringLiteral("pictures"), pictures(QColor(142, 142, 147))},
       {QStringLiteral("pressedPictures"), pictures(QColor(104, 104, 110))}});
  view_.setSource(source("Dialler"));
  if (view_.status() != QQuickView::Ready) {
    // The toolkit has told which QML module is missing.
    std::exit(EXIT_FAILURE);
  }
  view_.installEventFilter(this);
  connect(&view_, &QQuickWindow::frameSwapped, &screen, &CallScreen::shown);
}

DiallerWindow::~DiallerWindow() {
  view_.removeEventFilter(this);
}

void DiallerWindow::show() {
  view_.show();
  view_.requestActivate();
}

void DiallerWindow::raise() {
  view_.raise();
  view_.requestActivate();
}

bool DiallerWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Close) {
    emit closing();
  }
  return QObject::eventFilter(watched, event);
}

QImage DiallerWindow::picture() {
  QElapsedTimer time;
  time.start();
  do {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 100);
  } while (screen_.state() == CallScreen::State::Asking && !time.hasExpired(kLongestSettling));
  return view_.grabWindow();
}
