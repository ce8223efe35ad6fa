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

#include "calling/CallPlanner.h"
#include "calling/exampleNumber.h"
#include "core/applySettings.h"
#include "core/preferenceStore.h"
#include "core/settingsTable.h"
#include "linux/DBusNotifications.h"
#include "linux/DeviceFileService.h"
#include "linux/DevicePaths.h"
#include "linux/PhoneNumbers.h"
#include "linux/callSettings.h"

// One of the dialler's processes: reads the settings when it starts and when it is told that they
// are in force, and prints a line with what it read, and what that makes of a call, whenever that
// is new to it. The restarter starts it, with the device root and its own process identifier.

namespace {

std::string shown(const std::optional<PropertyListDictionary>& settings,
                  const settings::Setting& setting) {
  const auto entry =
      settings ? settings->find(setting.key) : PropertyListDictionary::const_iterator();
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
  const auto stored = files.dictionaryWithContentsOfFile(std::string(kSettingsPath));
  return "prefix " + shown(stored, settings::kSelectedPrefix) + ", dialer mode " +
         shown(stored, settings::kDialerMode) + ", systemwide style " +
         shown(stored, settings::kSystemwideStyle);
}

// What "Call Anonymously" would do with a number.
std::string exampleCall(const DevicePaths& paths) {
  static const PhoneNumbers plans;
  const CallPlanner planner(plans,
                            {.settings = readCallSettings(paths), .localeRegion = localeRegion()});
  const LineFacts line{.name = "phone"};
  const auto plan = planner.plan({kExampleNumber}, &line);
  if (plan.refusal) {
    return std::string("would not call ") + kExampleNumber + ": " +
           std::string(sentenceOf(*plan.refusal));
  }
  return std::string("would call ") + kExampleNumber + " as " + plan.dial;
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

  const auto paths =
      std::make_shared<const DevicePaths>(arguments[1], DevicePaths::installedLibrary());
  const DeviceFileService files(paths);
  std::string printed;
  const auto report = [&] {
    auto line = settingsLine(files) + "; " + exampleCall(*paths);
    if (line != printed) {
      std::printf("%s (%d): %s\n", program_invocation_short_name, getpid(), line.c_str());
      printed = std::move(line);
    }
  };
  DBusNotifications notifications([&](const std::string& name) {
    if (name == kSettingsAppliedNotification) {
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
