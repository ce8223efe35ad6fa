#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <poll.h>
#include <string>
#include <unistd.h>

#include <sys/prctl.h>

#include "linux/DBusNotifications.h"
#include "linux/DeviceFileService.h"
#include "linux/DevicePaths.h"

// One of the dialler's processes: reads the settings when it starts and when it is told that they
// are in force, and prints a line with what it read whenever that is new to it. The restarter
// starts it, with the device root and its own process identifier.

namespace {

constexpr const char* kSettingsFile = "/User/Library/Preferences/me.orlanvey.quietDial.plist";
constexpr const char* kApplied = "me.orlanvey.quietdial/prefsChanged";

std::string shown(const std::optional<PropertyListDictionary>& settings, const char* key) {
  const auto entry = settings ? settings->find(key) : PropertyListDictionary::const_iterator();
  if (!settings || entry == settings->end()) {
    return "none";
  }
  if (const auto* text = entry->second.get<std::string>()) {
    return *text;
  }
  const auto number = entry->second.integerValue();
  return number ? std::to_string(*number) : "none";
}

std::string settingsLine(const FileService& files) {
  const auto settings = files.dictionaryWithContentsOfFile(kSettingsFile);
  return "prefix " + shown(settings, "selectedPrefix") + ", dialer mode " +
         shown(settings, "dialerMode") + ", systemwide style " + shown(settings, "systemwideStyle");
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::fprintf(stderr, "usage: %s DEVICE-ROOT RESTARTER-PROCESS\n", arguments[0]);
    return 2;
  }
  // Ends with its restarter, also when that has ended already.
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (getppid() != std::atoi(arguments[2])) {
    return 0;
  }
  std::setvbuf(stdout, nullptr, _IOLBF, 0);

  const DeviceFileService files(
      std::make_shared<DevicePaths>(arguments[1], DevicePaths::installedLibrary()));
  std::string printed;
  const auto report = [&] {
    auto line = settingsLine(files);
    if (line != printed) {
      std::printf("%s (%d): %s\n", program_invocation_short_name, getpid(), line.c_str());
      printed = std::move(line);
    }
  };
  DBusNotifications notifications([&](const std::string& name) {
    if (name == kApplied) {
      report();
    }
  });
  report();
  while (true) {
    notifications.process();
    const auto wanted = notifications.wanted();
    pollfd descriptor{wanted.descriptor, wanted.events, 0};
    poll(&descriptor, 1, wanted.timeout);
  }
}
