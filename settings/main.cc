#include <QAccessible>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "linux/DesktopAddressOpener.h"
#include "linux/DeviceFileService.h"
#include "linux/DevicePaths.h"
#include "linux/HTTPClient.h"
#include "linux/HTTPFetchService.h"
#include "linux/PictureHeaderService.h"
#include "linux/SystemClock.h"
#include "platform/classes.h"
#include "platform/foundation/GlobalQueue.h"
#include "platform/foundation/MainQueue.h"
#include "platform/services.h"
#include "settings/AccessibleItemInterface.h"
#include "settings/BundleEntry.h"
#include "settings/BundleLoader.h"
#include "settings/Options.h"
#include "settings/QtTextMeasurer.h"
#include "settings/SettingsListController.h"
#include "settings/SettingsWindow.h"
#include "settings/SystemFont.h"
#include "settings/TerminationSignals.h"
#include "settings/Tour.h"
#include "settings/WebPages.h"
#include "tools/version.h"

namespace {

constexpr int kUnusableArguments = 2;

// Notifications reach the observers of this process; no other process is told.
class NoBroadcast final : public NotificationBroadcaster {
 public:
  void broadcast(NotificationCall /*call*/, const std::string& /*name*/) override {}
};

// No program is started: each start succeeds and each wait is over at once.
class NoProcesses final : public ProcessService {
 public:
  int posixSpawn(int& pid, const std::string& /*path*/,
                 const std::vector<std::string>& /*arguments*/,
                 const std::vector<std::string>* /*environment*/) override {
    pid = ++lastPid_;
    return 0;
  }
  int waitpid(int pid, int& status, int /*options*/) override {
    status = 0;
    return pid;
  }

 private:
  int lastPid_ = 0;
};

int complain(const QString& sentence, int status) {
  std::fprintf(stderr, "quietdial-settings: %s\n", qPrintable(sentence));
  return status;
}

// The toolkit ends the program with a core dump where there is no display; a sentence does.
void handleStartMessage(QtMsgType type, const QMessageLogContext& /*context*/,
                        const QString& /*message*/) {
  if (type == QtFatalMsg) {
    std::_Exit(complain(QStringLiteral("There is no display to open a window on. --screenshot and "
                                       "--tour write pictures without one."),
                        EXIT_FAILURE));
  }
}

// A Library folder in which that bundle stands alone; the toolkit removes it at the end.
QString libraryWith(const QString& bundle, const QTemporaryDir& folder) {
  const QDir library(folder.path());
  library.mkpath(QStringLiteral("PreferenceBundles"));
  const QFileInfo info(bundle);
  QFile::link(info.absoluteFilePath(),
              library.filePath(QStringLiteral("PreferenceBundles/") + info.fileName()));
  return library.path();
}

int writePicture(SettingsWindow& window, const QString& file) {
  const QImage image = window.picture();
  if (image.isNull()) {
    return complain(QStringLiteral("The renderer gives no picture here."), EXIT_FAILURE);
  }
  if (!image.save(file, "PNG")) {
    return complain(QStringLiteral("%1 cannot be written.").arg(file), EXIT_FAILURE);
  }
  return EXIT_SUCCESS;
}

int takeTour(SettingsWindow& window, const QString& folder) {
  Tour tour(window, folder);
  if (!tour.run()) {
    return complain(tour.error(), EXIT_FAILURE);
  }
  std::printf("%s\n", qPrintable(QDir(folder).filePath(QStringLiteral("index.html"))));
  return EXIT_SUCCESS;
}

int run(const Options& options) {
  const QTemporaryDir scratch;
  QString root = options.root;
  if (root.isEmpty()) {
    // A tour opens every pane; what panes write then is not the user's.
    root = options.tour.isEmpty() ? QString::fromStdString(DevicePaths::defaultRoot())
                                  : QDir(scratch.path()).filePath(QStringLiteral("device"));
  }
  root = QFileInfo(root).absoluteFilePath();
  const std::string library = options.bundle.isEmpty()
                                  ? DevicePaths::installedLibrary()
                                  : libraryWith(options.bundle, scratch).toStdString();
  const auto paths = std::make_shared<const DevicePaths>(root.toStdString(), library);
  const auto files = std::make_shared<DeviceFileService>(paths);
  const auto sheets = std::make_shared<Sheets>();
  const auto web = std::make_shared<HTTPClient>(options.hosts, HTTPClient::Unmapped::kLookedUp);
  const auto webPages = std::make_shared<WebPages>(options.hosts, web, options.webEngine);
  installServices({
      .clock = std::make_shared<SystemClock>(),
      .files = files,
      .notifications = std::make_shared<NoBroadcast>(),
      .processes = std::make_shared<NoProcesses>(),
      .addresses = std::make_shared<DesktopAddressOpener>(),
      .text = std::make_shared<QtTextMeasurer>(),
      .pictures = std::make_shared<PictureHeaderService>(paths),
      .sheets = sheets,
      .fetches = std::make_shared<HTTPFetchService>(web),
      .webViews = webPages,
  });
  registerClasses(platformClasses());

  std::vector<std::string> libraries{library};
  if (options.bundle.isEmpty()) {
    libraries.push_back(root.toStdString() + "/Library");
  }
  auto entries = readBundleEntries(libraries, *files);
  if (options.hasEntryBadge) {
    for (auto& entry : entries) {
      entry.badge = options.entryBadge.toStdString();
    }
  }

  const auto resolve = [paths](const std::string& path) {
    return paths->forReading(path).value_or("");
  };
  SettingsWindow window(*sheets, *webPages, resolve, options.size);
  window.navigation().setAnimated(!options.isPicture());
  const auto first = SettingsListController::withEntries(std::move(entries),
                                                         std::make_shared<BundleLoader>(paths));
  window.navigation().stack().pushViewControllerAnimated(first, false);
  if (!options.pane.isEmpty()) {
    first->openPane(options.pane.toStdString());
  }

  int status = EXIT_SUCCESS;
  if (!options.screenshot.isEmpty()) {
    status = writePicture(window, options.screenshot);
  } else if (!options.tour.isEmpty()) {
    status = takeTour(window, options.tour);
  } else {
    const TerminationSignals termination;
    QObject::connect(&termination, &TerminationSignals::received, &window, &SettingsWindow::close);
    window.show();
    status = QGuiApplication::exec();
  }
  window.navigation().endEditing();
  web->stop();
  GlobalQueue::shared().waitUntilIdle();
  MainQueue::shared().drain();
  return status;
}

}  // namespace

int main(int count, char** values) {
  QStringList arguments;
  for (int index = 0; index < count; ++index) {
    arguments.append(QString::fromLocal8Bit(values[index]));
  }
  const Options options = Options::parse(arguments);
  switch (options.ask) {
    case Options::Ask::Error:
      return complain(options.message, kUnusableArguments);
    case Options::Ask::Help:
      std::fputs(qPrintable(options.message), stdout);
      return EXIT_SUCCESS;
    case Options::Ask::Version:
      std::printf("quietdial-settings %s\n", kVersion);
      return EXIT_SUCCESS;
    case Options::Ask::Run:
      break;
  }

  if (options.isPicture()) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  if (options.scale > 0) {
    qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
  }
  if (options.renderer == Options::Renderer::Software) {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  }
  // The web engine wants it from the start, whether or not it is ever used.
  QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
  int toolkitCount = 1;  // the arguments are this program's own
  qInstallMessageHandler(handleStartMessage);
  const QGuiApplication application(toolkitCount, values);
  qInstallMessageHandler(nullptr);
  QGuiApplication::setApplicationName(QStringLiteral("quietdial-settings"));
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Settings"));
  QAccessible::installFactory(AccessibleItemInterface::make);
  system_font::load();
  return run(options);
}
