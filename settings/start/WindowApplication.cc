#include "settings/start/WindowApplication.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QQuickWindow>
#include <cstdlib>
#include <thread>

#include "platform/uikit/UIAccessibility.h"
#include "settings/accessibility/AccessibleItemInterface.h"
#include "settings/appearance/DesktopPreferences.h"
#include "settings/appearance/SystemFont.h"
#include "settings/messages/complain.h"
#include "settings/services/WebPages.h"

namespace {

const char* withoutDisplay = "";

// The toolkit ends the program with a core dump where there is no display; a sentence does.
void handleStartMessage(QtMsgType type, const QMessageLogContext& /*context*/,
                        const QString& /*message*/) {
  if (type == QtFatalMsg) {
    complain(std::string("There is no display to open a window on. ") + withoutDisplay);
    std::_Exit(EXIT_FAILURE);
  }
}

// What has to be known before the toolkit starts.
void prepareToolkit(const StartOptions& options) {
  if (options.isPicture) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  if (options.scale > 0) {
    qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
  }
  if (options.webEngine) {
    WebPages::prepareEngine(options.hosts);
  }
  if (options.renderer == StartOptions::Renderer::kSoftware) {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  } else {
    // The web engine wants it from the start, whether or not it is ever used. Beside the software
    // renderer it draws without, and the first page comes much sooner where OpenGL is not started.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
  }
}

}  // namespace

WindowApplication::WindowApplication(const StartOptions& options, const Names& names, char** values,
                                     const QList<QUrl>& first) {
  withoutDisplay = names.withoutDisplay;
  prepareToolkit(options);
  start(values, first);
  QGuiApplication::setApplicationName(QString::fromLatin1(names.program));
  QGuiApplication::setApplicationDisplayName(QString::fromLatin1(names.title));
  QAccessible::installFactory(AccessibleItemInterface::make);
  system_font::load();
  takeLook(options);
}

WindowApplication::~WindowApplication() = default;

void WindowApplication::start(char** values, const QList<QUrl>& first) {
  std::thread fonts(system_font::readAvailableFonts);
  qInstallMessageHandler(handleStartMessage);
  application_ = std::make_unique<QGuiApplication>(count_, values);
  qInstallMessageHandler(nullptr);
  qml_ = std::make_unique<QmlRuntime>(first);
  fonts.join();
}

void WindowApplication::takeLook(const StartOptions& options) {
  auto& appearance = Appearance::shared();
  appearance.setScheme(options.scheme);
  appearance.setMotion(options.isPicture ? Appearance::Motion::kReduced : options.motion);
  const auto passMotionOn = [&appearance] {
    UIAccessibilitySetReduceMotionEnabled(appearance.reducesMotion());
  };
  QObject::connect(&appearance, &Appearance::changed, application_.get(), passMotionOn);
  passMotionOn();
  appearance.setDirection(options.direction);
  UIApplication::sharedApplication().setPreferredContentSizeCategory(options.textSize);
  if (!options.isPicture) {
    desktop_ = std::make_unique<DesktopPreferences>();
  }
}
