#include <QAccessible>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

#include "headless/RecordingAddresses.h"
#include "headless/RecordingMail.h"
#include "linux/DBusNotifications.h"
#include "linux/DesktopAddressOpener.h"
#include "linux/DeviceFileService.h"
#include "linux/DevicePaths.h"
#include "linux/HTTPClient.h"
#include "linux/HTTPFetchService.h"
#include "linux/LowMemoryWatch.h"
#include "linux/NetworkWork.h"
#include "linux/PictureHeaderService.h"
#include "linux/PosixProcessService.h"
#include "linux/StartEnvironment.h"
#include "linux/Syslog.h"
#include "linux/SystemClock.h"
#include "linux/SystemMail.h"
#include "linux/WatchedFiles.h"
#include "linux/readFile.h"
#include "platform/classes.h"
#include "platform/foundation/CFNotificationCenter.h"
#include "platform/foundation/MainQueue.h"
#include "platform/services.h"
#include "platform/uikit/UIAccessibility.h"
#include "platform/uikit/UIApplication.h"
#include "settings/accessibility/AccessibleItemInterface.h"
#include "settings/appearance/Appearance.h"
#include "settings/appearance/DesktopPreferences.h"
#include "settings/appearance/SystemFont.h"
#include "settings/bundles/BundleEntry.h"
#include "settings/bundles/BundleLoader.h"
#include "settings/bundles/SettingsListController.h"
#include "settings/program/AnimationController.h"
#include "settings/program/Options.h"
#include "settings/qml/QmlRuntime.h"
#include "settings/services/NotificationsHost.h"
#include "settings/services/QtTextMeasurer.h"
#include "settings/services/TerminationSignals.h"
#include "settings/services/WebPages.h"
#include "settings/services/WindowDeviceInformation.h"
#include "settings/services/WindowRefresh.h"
#include "settings/tour/Tour.h"
#include "settings/window/SettingsWindow.h"
#include "settings/window/UnsavedNotice.h"
#include "tools/version.h"

namespace {

constexpr int kUnusableArguments = 2;
// Nothing is fetched before the first frame is shown, but for that many milliseconds at most.
constexpr int kLongestSuspension = 2000;

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

// What changes lead to outside of this program.
struct Effects {
  std::shared_ptr<NotificationBroadcaster> notifications;
  std::shared_ptr<ProcessService> processes;
  std::unique_ptr<NotificationsHost> host;
};

Effects effectsFor(const Options& options) {
  if (options.effects == Options::Effects::None) {
    return {std::make_shared<NoBroadcast>(), std::make_shared<NoProcesses>(), nullptr};
  }
  const auto notifications = std::make_shared<DBusNotifications>([](const std::string& name) {
    CFNotificationCenterDeliver(CFNotificationCenterGetDarwinNotifyCenter(), name);
  });
  return {notifications, std::make_shared<PosixProcessService>(),
          std::make_unique<NotificationsHost>(notifications)};
}

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

int takeTour(Tour tour, const QString& folder) {
  if (!tour.run()) {
    return complain(tour.error(), EXIT_FAILURE);
  }
  std::printf("%s\n", qPrintable(QDir(folder).filePath(QStringLiteral("index.html"))));
  return EXIT_SUCCESS;
}

// The page that plays the file; null, and a sentence in `error`, where it cannot be played.
std::shared_ptr<AnimationController> openAnimation(const QString& file,
                                                   const std::vector<BundleEntry>& entries,
                                                   BundleLoader& loader, QString& error) {
  // As much as is played of a file that the terminal program describes.
  constexpr std::size_t kMostFileBytes = std::size_t{256} << 20;
  const auto contents = readFile(AT_FDCWD, QFile::encodeName(file).toStdString(), kMostFileBytes);
  if (contents.outcome != FileContents::Outcome::kRead) {
    error = QStringLiteral("%1 cannot be read.").arg(file);
    return nullptr;
  }
  for (const auto& entry : entries) {
    loader.load(entry);
  }
  auto page = AnimationController::withData(
      NSData::dataWithBytes({contents.bytes.begin(), contents.bytes.end()}),
      QFileInfo(file).fileName().toStdString());
  if (!page) {
    error = QStringLiteral("%1 is no animated picture that can be played.").arg(file);
  }
  return page;
}

int run(const Options& options, QmlRuntime& qml) {
  const QTemporaryDir scratch;
  QString root = options.root;
  if (root.isEmpty()) {
    // A tour opens every pane; what panes write then is not the user's.
    root = options.tour.isEmpty() ? QString::fromStdString(DevicePaths::defaultRoot())
                                  : QDir(scratch.path()).filePath(QStringLiteral("device"));
  }
  root = QFileInfo(root).absoluteFilePath();
  const std::string library = DevicePaths::installedLibrary();
  const QFileInfo bundle(options.bundle);
  const auto paths = std::make_shared<const DevicePaths>(
      root.toStdString(), library,
      options.bundle.isEmpty() ? std::string() : bundle.absoluteFilePath().toStdString());
  const auto unsaved = std::make_shared<UnsavedSettings>();
  UnsavedNotice notice(unsaved);
  const auto files =
      std::make_shared<WatchedFiles>(std::make_shared<DeviceFileService>(paths), unsaved);
  const auto sheets = std::make_shared<Sheets>();
  const auto web = std::make_shared<HTTPClient>(options.hosts, HTTPClient::Unmapped::kLookedUp);
  const NetworkWork network(web);
  if (!options.isPicture()) {
    web->suspend();
  }
  const auto webPages = std::make_shared<WebPages>(options.hosts, web, options.webEngine);
  const auto refresh = std::make_shared<WindowRefresh>(options.refreshRate);
  const auto effects = effectsFor(options);
  // Pictures show the same on every machine, and nothing of them leaves it.
  const auto staged = std::make_shared<RecordingMail>(true, nullptr);
  std::shared_ptr<MailService> mail = staged;
  std::shared_ptr<AddressOpener> addresses = std::make_shared<RecordingAddresses>(
      std::make_shared<Recorder>(), std::set<std::string>(), nullptr);
  if (!options.isPicture()) {
    mail = std::make_shared<SystemMail>(root.toStdString() + "/Drafts");
    addresses = std::make_shared<DesktopAddressOpener>();
  }
  installServices({
      .clock = std::make_shared<SystemClock>(),
      .files = files,
      .notifications = effects.notifications,
      .processes = effects.processes,
      .addresses = addresses,
      .text = std::make_shared<QtTextMeasurer>(),
      .pictures = std::make_shared<PictureHeaderService>(paths),
      .sheets = sheets,
      .mail = mail,
      .device = std::make_shared<WindowDeviceInformation>(),
      .fetches = std::make_shared<HTTPFetchService>(web),
      .webViews = webPages,
      .displayRefresh = refresh,
      .log = std::make_shared<Syslog>("quietdial-settings"),
  });
  registerClasses(platformClasses());

  const auto bundles = options.bundle.isEmpty()
                           ? findBundles({library, root.toStdString() + "/Library"})
                           : std::set{bundle.fileName().toStdString()};
  auto entries = readBundleEntries(bundles, *files);
  if (options.hasEntryBadge) {
    for (auto& entry : entries) {
      entry.badge = options.entryBadge.toStdString();
    }
  }

  const auto loader = std::make_shared<BundleLoader>(paths);
  std::shared_ptr<AnimationController> animation;
  if (!options.gif.isEmpty()) {
    QString error;
    animation = openAnimation(options.gif, entries, *loader, error);
    if (!animation) {
      return complain(error, EXIT_FAILURE);
    }
  }

  const auto resolve = [paths](const std::string& path) {
    return paths->forReading(path).value_or("");
  };
  const auto record = std::make_shared<OpeningRecord>(
      root + QStringLiteral("/User/Library/Caches/Settings/Opening"));
  const auto openWindow = [&] {
    auto window =
        std::make_unique<SettingsWindow>(qml, *sheets, notice, *webPages, resolve, options.size);
    window->follow(*refresh);
    QObject::connect(window.get(), &SettingsWindow::pagesShown, window.get(),
                     [record] { record->succeed(); });
    window->navigation().setAnimated(!options.isPicture());
    window->navigation().stack().pushViewControllerAnimated(
        SettingsListController::withEntries(entries, loader, record), false);
    return window;
  };
  if (!options.tour.isEmpty()) {
    return takeTour(Tour(openWindow, *sheets, *staged, options.size.height(), options.tour),
                    options.tour);
  }

  const auto window = openWindow();
  if (!options.pane.isEmpty()) {
    cast<SettingsListController>(window->navigation().topPage())
        ->openPane(options.pane.toStdString());
  }
  if (animation) {
    window->navigation().stack().pushViewControllerAnimated(animation, false);
  }
  int status = EXIT_SUCCESS;
  if (!options.screenshot.isEmpty()) {
    status = writePicture(*window, options.screenshot);
  } else {
    const TerminationSignals termination;
    const LowMemoryWatch lowMemory(LowMemoryWatch::systemSources(), [] {
      UIApplication::sharedApplication().didReceiveMemoryWarning();
    });
    QObject::connect(&termination, &TerminationSignals::received, window.get(),
                     &SettingsWindow::close);
    QObject::connect(
        window.get(), &SettingsWindow::frameShown, window.get(), [web] { web->resume(); },
        Qt::SingleShotConnection);
    // A window may be opened out of sight.
    QTimer::singleShot(kLongestSuspension, window.get(), [web] { web->resume(); });
    window->show();
    status = QGuiApplication::exec();
  }
  window->navigation().endEditing();
  MainQueue::shared().drain();
  if (notice.isShown()) {
    // Perhaps the window was gone before anybody could read it there.
    complain(QStringLiteral("%1 (%2)").arg(notice.sentence(), notice.settings()), status);
  }
  return status;
}

}  // namespace

int main(int count, char** values) {
  StartEnvironment::shared();
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
  if (geteuid() == 0 && !options.allowRoot) {
    return complain(
        QStringLiteral("This is not meant for root; --allow-root goes on all the same."),
        EXIT_FAILURE);
  }

  if (options.isPicture()) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  if (options.scale > 0) {
    qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
  }
  if (options.webEngine) {
    WebPages::prepareEngine(options.hosts);
  }
  if (options.renderer == Options::Renderer::Software) {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  } else {
    // The web engine wants it from the start, whether or not it is ever used. Beside the software
    // renderer it draws without, and the first page comes much sooner where OpenGL is not started.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
  }
  std::thread fonts(system_font::readAvailableFonts);
  int toolkitCount = 1;  // the arguments are this program's own
  qInstallMessageHandler(handleStartMessage);
  const QGuiApplication application(toolkitCount, values);
  qInstallMessageHandler(nullptr);
  QmlRuntime qml;
  fonts.join();
  QGuiApplication::setApplicationName(QStringLiteral("quietdial-settings"));
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Settings"));
  QAccessible::installFactory(AccessibleItemInterface::make);
  system_font::load();
  auto& appearance = Appearance::shared();
  appearance.setScheme(options.scheme);
  // Nothing moves in a picture.
  appearance.setMotion(options.isPicture() ? Appearance::Motion::Reduced : options.motion);
  const auto passMotionOn = [&appearance] {
    UIAccessibilitySetReduceMotionEnabled(appearance.reducesMotion());
  };
  QObject::connect(&appearance, &Appearance::changed, &application, passMotionOn);
  passMotionOn();
  appearance.setDirection(options.direction);
  UIApplication::sharedApplication().setPreferredContentSizeCategory(options.textSize);
  // Pictures are the same on every desktop.
  const auto desktop = options.isPicture() ? nullptr : std::make_unique<DesktopPreferences>();
  return run(options, qml);
}
