#include <QDir>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "headless/RecordingMail.h"
#include "linux/StartEnvironment.h"
#include "linux/Syslog.h"
#include "platform/classes.h"
#include "settings/bundles/InstalledBundles.h"
#include "settings/messages/complain.h"
#include "settings/services/NoAddresses.h"
#include "settings/services/NoBroadcast.h"
#include "settings/services/NoProcesses.h"
#include "settings/start/WindowApplication.h"
#include "settings/start/WindowHost.h"
#include "settings/tour/Tour.h"
#include "settings/tour/TourOptions.h"

namespace {

constexpr WindowApplication::Names kNames{"quietdial-tour", "Settings", ""};

// Pictures show the same on every machine, and nothing of them leaves it.
Services servicesFor(const WindowHost& host, const std::shared_ptr<RecordingMail>& mail) {
  auto services = host.services();
  services.notifications = std::make_shared<NoBroadcast>();
  services.processes = std::make_shared<NoProcesses>();
  services.addresses = std::make_shared<NoAddresses>();
  services.mail = mail;
  services.log = std::make_shared<Syslog>(kNames.program);
  return services;
}

int run(const TourOptions& options, QmlRuntime& qml) {
  // The tour opens every pane; what panes write then is not the user's.
  const QTemporaryDir scratch;
  const auto paths = options.bundles.pathsBelow(
      options.start.root.empty() ? scratch.filePath(QStringLiteral("device")).toStdString()
                                 : options.start.root);
  WindowHost host(options.start, paths);
  const auto mail = std::make_shared<RecordingMail>(true, nullptr);
  installServices(servicesFor(host, mail));
  registerClasses(platformClasses());
  const InstalledBundles bundles(options.bundles, paths, host.files());
  const auto openWindow = [&] {
    auto window = host.openWindow(qml);
    bundles.listIn(*window);
    return window;
  };

  const QString folder = QString::fromStdString(options.folder);
  Tour tour(openWindow, host.sheets(), *mail, options.start.size.height(), folder);
  if (!tour.run()) {
    complain(tour.error().toStdString());
    return EXIT_FAILURE;
  }
  std::printf("%s\n", qPrintable(QDir(folder).filePath(QStringLiteral("index.html"))));
  return EXIT_SUCCESS;
}

}  // namespace

int main(int count, char** values) {
  StartEnvironment::shared();
  TourOptions options;
  if (const auto status = options.parse(count, values)) {
    return *status;
  }
  WindowApplication application(options.start, kNames, values);
  return run(options, application.qml());
}
