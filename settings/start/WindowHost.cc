#include "settings/start/WindowHost.h"

#include <QTimer>
#include <utility>

#include "linux/DeviceFileService.h"
#include "linux/HTTPFetchService.h"
#include "linux/PictureHeaderService.h"
#include "linux/SystemClock.h"
#include "settings/messages/complain.h"
#include "settings/services/QtTextMeasurer.h"
#include "settings/services/WindowDeviceInformation.h"

namespace {

// The longest that fetches are held back, in milliseconds.
constexpr int kLongestSuspension = 2000;

}  // namespace

WindowHost::WindowHost(const StartOptions& options, std::shared_ptr<const DevicePaths> paths)
    : size_(options.size),
      animated_(!options.isPicture),
      paths_(std::move(paths)),
      unsaved_(std::make_shared<UnsavedSettings>()),
      notice_(unsaved_),
      files_(std::make_shared<WatchedFiles>(std::make_shared<DeviceFileService>(paths_), unsaved_)),
      sheets_(std::make_shared<Sheets>()),
      web_(std::make_shared<HTTPClient>(options.hosts, HTTPClient::Unmapped::kLookedUp)),
      network_(web_),
      webPages_(std::make_shared<WebPages>(options.hosts, web_, options.webEngine)),
      refresh_(std::make_shared<WindowRefresh>(options.refreshRate)) {}

Services WindowHost::services() const {
  Services services;
  services.clock = std::make_shared<SystemClock>();
  services.files = files_;
  services.text = std::make_shared<QtTextMeasurer>();
  services.pictures = std::make_shared<PictureHeaderService>(paths_);
  services.sheets = sheets_;
  services.device = std::make_shared<WindowDeviceInformation>();
  services.fetches = std::make_shared<HTTPFetchService>(web_);
  services.webViews = webPages_;
  services.displayRefresh = refresh_;
  return services;
}

std::unique_ptr<SettingsWindow> WindowHost::openWindow(QmlRuntime& qml) {
  const auto resolve = [paths = paths_](const std::string& path) {
    return paths->forReading(path).value_or("");
  };
  auto window =
      std::make_unique<SettingsWindow>(qml, *sheets_, notice_, *webPages_, resolve, size_);
  window->follow(*refresh_);
  window->navigation().setAnimated(animated_);
  return window;
}

void WindowHost::holdFetches(SettingsWindow& window) {
  web_->suspend();
  const auto resume = [web = web_] { web->resume(); };
  QObject::connect(&window, &SettingsWindow::frameShown, &window, resume, Qt::SingleShotConnection);
  // A window may be opened out of sight.
  auto* limit = new QTimer(&window);
  limit->setSingleShot(true);
  QObject::connect(limit, &QTimer::timeout, &window, resume);
  limit->start(kLongestSuspension);
}

void WindowHost::tellUnsaved() const {
  if (notice_.isShown()) {
    complain((notice_.sentence() + QStringLiteral(" (") + notice_.settings() + QStringLiteral(")"))
                 .toStdString());
  }
}
