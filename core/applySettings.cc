#include "core/applySettings.h"

#include <string>
#include <vector>

#include "platform/libsystem/notify.h"
#include "platform/libsystem/spawn.h"

std::uint32_t applySettings() {
  static const std::vector<std::string> kArguments{"killall", "-9", "MobilePhone", "InCallService"};
  // A spawn that fails leaves no process; waiting for none fails at once.
  int pid = -1;
  libsystem::posix_spawn(pid, "/usr/bin/killall", kArguments, nullptr);
  int status = 0;
  libsystem::waitpid(pid, status, libsystem::kWaitExited);
  return libsystem::notify_post(kSettingsAppliedNotification);
}

void preferencesDidChange() {
  applySettings();
}
