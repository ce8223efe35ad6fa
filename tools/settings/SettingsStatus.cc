#include "tools/settings/SettingsStatus.h"

#include <utility>

#include "calling/CallPlanner.h"
#include "calling/exampleNumber.h"
#include "linux/DesktopAddressOpener.h"
#include "linux/PhoneNumbers.h"
#include "linux/SystemMail.h"
#include "linux/callSettings.h"
#include "linux/lines/Lines.h"
#include "linux/storedSettings.h"

namespace {

void planExample(const DevicePaths& paths, SettingsStatus& status) {
  const PhoneNumbers plans;
  const Lines lines;
  const CallPlanner planner(plans, {.settings = readCallSettings(paths),
                                    .network = lines.network(),
                                    .localeRegion = localeRegion()});
  const auto choice = lines.forCall("auto", false);
  if (!choice.empty()) {
    status.lineTitle = choice.front()->title();
  }
  // Without a line the other rules are of interest all the same.
  const auto facts = choice.empty() ? LineFacts{.name = "none"} : choice.front()->facts();
  status.example = planner.plan({.text = kExampleNumber}, &facts);
}

void warnOfCalls(SettingsStatus& status) {
  const auto warn = [&](auto reason) {
    status.warnings.push_back({std::string(codeOf(reason)), std::string(sentenceOf(reason))});
  };
  if (status.example.refusal) {
    warn(*status.example.refusal);
  }
  for (const auto notice : status.example.notices) {
    warn(notice);
  }
  if (status.lineTitle.empty()) {
    warn(Refusal::kNoLine);
  }
}

void warnOfDesktop(const DevicePaths& paths, SettingsStatus& status) {
  if (!DesktopAddressOpener().canOpen("tel:0")) {
    status.warnings.push_back({"no-phone-links", "Nothing here opens phone links."});
  }
  if (!SystemMail(paths.root() + "/Drafts").canSend()) {
    status.warnings.push_back({"no-mail", "Nothing here sends mail."});
  }
}

}  // namespace

SettingsStatus findSettingsStatus(const DevicePaths& paths) {
  SettingsStatus status;
  auto stored = readStoredSettings(paths);
  if (stored.state == StoredSettings::State::kUnreadable) {
    status.warnings.push_back(
        {"unreadable", "The settings file cannot be read: " + stored.fault + "."});
  }
  status.settings = std::move(stored.settings);
  planExample(paths, status);
  warnOfCalls(status);
  warnOfDesktop(paths, status);
  return status;
}
