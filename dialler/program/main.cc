#include <QElapsedTimer>
#include <QGuiApplication>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <sys/resource.h>

#include "dialler/desk/SoleScreen.h"
#include "dialler/desk/ThreadedCallService.h"
#include "dialler/model/CallScreen.h"
#include "dialler/model/Keypad.h"
#include "dialler/program/DiallerOptions.h"
#include "dialler/program/DiallerWindow.h"
#include "linux/DBusNotifications.h"
#include "linux/DevicePaths.h"
#include "linux/StartEnvironment.h"
#include "linux/desktopProgram.h"
#include "linux/diallerSettings.h"
#include "settings/messages/complain.h"
#include "settings/services/NotificationsHost.h"
#include "settings/services/TerminationSignals.h"
#include "settings/start/WindowApplication.h"

namespace {

constexpr WindowApplication::Names kNames{"quietdial-dialler", "QuietDial",
                                          "quietdial call needs none."};
constexpr const char* kSettingsChanged = "me.orlanvey.quietdial/prefsChanged";

DevicePaths pathsFor(const DiallerOptions& options) {
  const std::string& root = options.start.root;
  return {root.empty() ? DevicePaths::defaultRoot()
                       : std::filesystem::absolute(root).lexically_normal().string(),
          DevicePaths::installedLibrary()};
}

// The Settings application beside this program, on the same device.
void openSettings(const DiallerOptions& options, const DevicePaths& paths, const QString& pane) {
  const QString program =
      QGuiApplication::applicationDirPath() + QStringLiteral("/quietdial-settings");
  std::vector<std::string> command{program.toStdString(), "--root", paths.root()};
  if (!pane.isEmpty()) {
    command.insert(command.end(), {"--pane", pane.toStdString()});
  }
  if (options.start.allowRoot) {
    command.emplace_back("--allow-root");
  }
  startDesktopProgram(command);
}

int run(const DiallerOptions& options, SoleScreen& callTurn, SoleScreen& keypadTurn,
        QmlRuntime& qml) {
  const DevicePaths paths = pathsFor(options);
  ThreadedCallService service({.paths = paths,
                               .via = options.via,
                               .region = options.region,
                               .isTrial = options.isTrial,
                               .out = &std::cout});
  QElapsedTimer clock;
  clock.start();
  const auto settings = [paths] { return readDiallerSettings(paths); };
  CallScreen screen(service, settings, [clock] { return clock.elapsed(); });
  std::unique_ptr<Keypad> keypad;
  if (!options.hasNumber) {
    keypad = std::make_unique<Keypad>(settings);
  } else {
    screen.openLink(QString::fromStdString(options.number));
  }
  DiallerWindow window(qml, screen, keypad.get(), paths, options.start.size);
  if (options.start.isPicture) {
    if (!window.picture().save(QString::fromStdString(options.screenshot), "PNG")) {
      complain(options.screenshot + " cannot be written.");
      return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
  }

  const auto notifications = std::make_shared<DBusNotifications>([&](const std::string& name) {
    if (name == kSettingsChanged) {
      screen.readSettings();
      if (keypad) {
        keypad->readSettings();
      }
    }
  });
  const NotificationsHost host(notifications);
  const TerminationSignals termination;
  QObject::connect(&termination, &TerminationSignals::received, &window, &DiallerWindow::close);
  QObject::connect(&window, &DiallerWindow::closing, &screen, &CallScreen::close);
  QObject::connect(&screen, &CallScreen::settingsWanted, &window,
                   [&](const QString& pane) { openSettings(options, paths, pane); });
  QObject::connect(&callTurn, &SoleScreen::knocked, &screen, [&] {
    screen.dropLink();
    window.raise();
  });
  callTurn.listen();
  QObject::connect(&screen, &CallScreen::closed, &window, [&] {
    callTurn.giveBack();
    if (!keypad) {
      window.close();
    }
  });
  if (keypad) {
    QObject::connect(&keypadTurn, &SoleScreen::knocked, &window, &DiallerWindow::raise);
    keypadTurn.listen();
    QObject::connect(
        keypad.get(), &Keypad::callWanted, &screen, [&](const QString& typed, bool isAnonymous) {
          if (!callTurn.take(SoleScreen::Otherwise::Nothing)) {
            keypad->setRemark(QObject::tr("Another call screen is open. Close it first."));
            return;
          }
          callTurn.listen();
          screen.openPressed(typed, isAnonymous);
        });
  }
  window.show();
  return QGuiApplication::exec();
}

// What was to be called is in no record of a crash.
void keepNoCores() {
  const rlimit none{};
  setrlimit(RLIMIT_CORE, &none);
}

}  // namespace

int main(int count, char** values) {
  keepNoCores();
  StartEnvironment::shared();
  DiallerOptions options;
  if (const auto status = options.parse(count, values)) {
    return *status;
  }
  // Before anything else is made: of many links at once all but one end here.
  SoleScreen callTurn(QStringLiteral("call-screen"));
  SoleScreen keypadTurn(QStringLiteral("keypad"));
  auto& turn = options.hasNumber ? callTurn : keypadTurn;
  if (!options.start.isPicture && !turn.take(SoleScreen::Otherwise::Knock)) {
    return EXIT_SUCCESS;
  }
  WindowApplication application(options.start, kNames, values, DiallerWindow::sources());
  QGuiApplication::setDesktopFileName(QStringLiteral("me.orlanvey.QuietDial.Dialler"));
  return run(options, callTurn, keypadTurn, application.qml());
}
