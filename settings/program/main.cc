#include <QGuiApplication>
#include <QImage>
#include <cstdlib>
#include <memory>
#include <string>

#include "linux/DesktopAddressOpener.h"
#include "linux/LowMemoryWatch.h"
#include "linux/StartEnvironment.h"
#include "linux/Syslog.h"
#include "linux/SystemMail.h"
#include "platform/classes.h"
#include "platform/foundation/MainQueue.h"
#include "platform/uikit/UIApplication.h"
#include "settings/bundles/InstalledBundles.h"
#include "settings/messages/complain.h"
#include "settings/phone/PhoneController.h"
#include "settings/phone/machinePhone.h"
#include "settings/program/AnimationController.h"
#include "settings/program/Effects.h"
#include "settings/program/Options.h"
#include "settings/services/NoAddresses.h"
#include "settings/services/NoMail.h"
#include "settings/services/TerminationSignals.h"
#include "settings/start/WindowApplication.h"
#include "settings/start/WindowHost.h"

namespace {

constexpr WindowApplication::Names kNames{"quietdial-settings", "Settings",
                                          "--screenshot writes a picture without one."};

Services servicesFor(const Options& options, const WindowHost& host, const Effects& effects,
                     const std::string& root) {
  auto services = host.services();
  services.notifications = effects.notifications;
  services.processes = effects.processes;
  services.log = std::make_shared<Syslog>(kNames.program);
  if (options.start.isPicture) {
    // Pictures show the same on every machine, and nothing of them leaves it.
    services.addresses = std::make_shared<NoAddresses>();
    services.mail = std::make_shared<NoMail>();
  } else {
    services.addresses = std::make_shared<DesktopAddressOpener>();
    services.mail = std::make_shared<SystemMail>(root + "/Drafts");
  }
  return services;
}

int writePicture(SettingsWindow& window, const std::string& file) {
  const QImage image = window.picture();
  if (image.isNull()) {
    complain("The renderer gives no picture here.");
    return EXIT_FAILURE;
  }
  if (!image.save(QString::fromStdString(file), "PNG")) {
    complain(file + " cannot be written.");
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}

// Until the user closes the window, or the program is told to end.
int show(SettingsWindow& window) {
  const TerminationSignals termination;
  const LowMemoryWatch lowMemory(LowMemoryWatch::systemSources(), [] {
    UIApplication::sharedApplication().didReceiveMemoryWarning();
  });
  QObject::connect(&termination, &TerminationSignals::received, &window, &SettingsWindow::close);
  window.show();
  return QGuiApplication::exec();
}

int run(const Options& options, QmlRuntime& qml) {
  const auto paths = options.bundles.pathsBelow(
      options.start.root.empty() ? DevicePaths::defaultRoot() : options.start.root);
  WindowHost host(options.start, paths);
  const Effects effects = options.hasEffects ? Effects::real() : Effects::none();
  installServices(servicesFor(options, host, effects, paths->root()));
  registerClasses(platformClasses());
  const InstalledBundles bundles(options.bundles, paths, host.files());

  std::shared_ptr<AnimationController> animation;
  if (!options.gif.empty()) {
    std::string fault;
    animation = AnimationController::withFile(options.gif, bundles, fault);
    if (!animation) {
      complain(fault);
      return EXIT_FAILURE;
    }
  }
  const auto window = host.openWindow(qml);
  if (!options.start.isPicture) {
    host.holdFetches(*window);
  }
  const auto phone = machinePhone(paths, QGuiApplication::applicationDirPath().toStdString(),
                                  options.isTrial, options.start.allowRoot);
  const auto list = bundles.listIn(
      *window,
      {{"Phone", "PhoneController", [phone] { return PhoneController::withPhone(phone); }}});
  if (!options.pane.empty()) {
    list->openPane(options.pane);
  }
  if (animation) {
    window->navigation().stack().pushViewControllerAnimated(animation, false);
  }
  const int status =
      options.start.isPicture ? writePicture(*window, options.screenshot) : show(*window);
  window->navigation().endEditing();
  MainQueue::shared().drain();
  host.tellUnsaved();
  return status;
}

}  // namespace

int main(int count, char** values) {
  StartEnvironment::shared();
  Options options;
  if (const auto status = options.parse(count, values)) {
    return *status;
  }
  WindowApplication application(options.start, kNames, values);
  return run(options, application.qml());
}
