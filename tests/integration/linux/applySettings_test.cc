#include "core/applySettings.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <map>
#include <poll.h>
#include <regex>
#include <unistd.h>

#include <sys/stat.h>
#include <sys/wait.h>

#include "core/preferenceStore.h"
#include "headless/RecordingFiles.h"
#include "headless/RecordingNotifications.h"
#include "headless/RecordingProcesses.h"
#include "linux/DeviceFileService.h"
#include "linux/PosixProcessService.h"
#include "linux/SystemClock.h"
#include "platform/foundation/CFNotificationCenter.h"
#include "platform/foundation/NSBundle.h"
#include "prefix/QDCountryPrefixController.h"
#include "root/QDPreferencesListController.h"
#include "styles/QDButtonPickerCell.h"
#include "styles/QDButtonStyleSelectionController.h"
#include "tests/support/PaneTest.h"
#include "tests/support/PollHost.h"
#include "tests/support/PrivateBus.h"

extern "C" const ClassTable quietDialPreferencesClasses;

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr const char* kChanged = "me.orlanvey.quietDial/PreferencesChanged";
constexpr const char* kApplied = "me.orlanvey.quietdial/prefsChanged";

// What one of the dialler's processes printed.
struct Report {
  std::string process;
  int pid = 0;
  std::string settings;
};

// The panes on the real services: files, bus, processes; the real killall and the stand-ins.
class RealEffects : public PaneTest {
 protected:
  RealEffects() {
    auto real = services();
    real.clock = std::make_shared<SystemClock>();
    real.files = std::make_shared<RecordingFiles>(
        std::make_shared<DeviceFileService>(
            std::make_shared<DevicePaths>(root_.path(), root_ / "Library")),
        recorder);
    real.notifications = std::make_shared<RecordingNotifications>(recorder, notifications_);
    real.processes =
        std::make_shared<RecordingProcesses>(recorder, std::make_shared<PosixProcessService>());
    installServices(real);
    NSBundle::load(kBundle, quietDialPreferencesClasses);
  }

  std::optional<Report> nextReport() {
    static const std::regex kLine(R"((\w+) \((\d+)\): (.*))");
    const auto line = restarter_->readLine();
    std::smatch parts;
    if (!line || !std::regex_match(*line, parts, kLine)) {
      return std::nullopt;
    }
    return Report{parts[1], std::stoi(parts[2]), parts[3]};
  }

  static bool join(DBusNotifications& notifications) {
    return PollHost(notifications)
        .runUntil([&] { return notifications.state() == DBusNotifications::State::kListening; },
                  20s);
  }
  bool joinBus() { return join(*notifications_); }

  void startDialler() {
    restarter_ = std::make_unique<ChildProcess>(std::vector<std::string>{
        QD_STANDINS "/dialler-restarter", "--root", root_.path().string()});
  }

  // The last report of each process once both have read the settings with that prefix.
  std::map<std::string, Report> reportsWithPrefix(const std::string& prefix) {
    std::map<std::string, Report> reports;
    while (const auto report = nextReport()) {
      if (report->settings.starts_with("prefix " + prefix + ",")) {
        reports[report->process] = *report;
      }
      if (reports.size() == 2) {
        break;
      }
    }
    return reports;
  }

  static void expectNoZombie() {
    siginfo_t ended{};
    if (waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT) == 0) {
      EXPECT_EQ(ended.si_pid, 0) << "an ended child was not collected";
    }
  }

  TemporaryFolder root_;
  PrivateBus bus_;
  std::shared_ptr<DBusNotifications> notifications_ = DBusNotifications::forPanes();
  std::unique_ptr<ChildProcess> restarter_;
};

std::vector<Event> appliedEvents(int times) {
  std::vector<Event> events;
  for (int time = 0; time < times; ++time) {
    events.push_back(SpawnEvent{
        "/usr/bin/killall", {"killall", "-9", "MobilePhone", "InCallService"}, std::nullopt});
    events.push_back(WaitEvent{4});
    events.push_back(PostEvent{NotificationCall::kNotifyPost, kApplied});
  }
  return events;
}

std::vector<Event> withoutWrites(std::vector<Event> events) {
  std::erase_if(events,
                [](const Event& event) { return std::holds_alternative<WriteEvent>(event); });
  return events;
}

}  // namespace

TEST_F(RealEffects, TheDiallerTellsWhatItWouldDial) {
  ASSERT_TRUE(joinBus());
  writePreference("selectedPrefix", "*67");
  startDialler();
  const auto reports = reportsWithPrefix("*67");
  ASSERT_EQ(reports.size(), 2U);
  for (const auto& [process, report] : reports) {
    EXPECT_TRUE(report.settings.ends_with("; would call 0171 555 0134 as *6701715550134"))
        << report.settings;
  }
}

TEST_F(RealEffects, TheDiallerTellsWhyItWouldNotCall) {
  ASSERT_TRUE(joinBus());
  writePreference("selectedPrefix", "");
  startDialler();
  const auto reports = reportsWithPrefix("");
  ASSERT_EQ(reports.size(), 2U);
  EXPECT_TRUE(reports.begin()->second.settings.find("; would not call 0171 555 0134: ") !=
              std::string::npos)
      << reports.begin()->second.settings;
}

TEST_F(RealEffects, OneTapRestartsTheDiallerForEachOfItsTwoWrites) {
  ASSERT_TRUE(joinBus());
  const auto root = open<QDPreferencesListController>();
  const auto pane = open<QDCountryPrefixController>();
  settle();
  startDialler();
  const auto before = reportsWithPrefix("#31#");
  ASSERT_EQ(before.size(), 2U);
  BusMonitor monitor;
  take();

  pane->selectSpecifier(pane->specifierForID("Canada"));
  settle();

  const Event changed = PostEvent{NotificationCall::kCFNotificationCenter, kChanged};
  std::vector<Event> expected{changed, changed};
  const auto applied = appliedEvents(2);
  expected.insert(expected.end(), applied.begin(), applied.end());
  EXPECT_THAT(withoutWrites(take()), ElementsAreArray(expected));
  for (const auto* name : {kChanged, kChanged, kApplied, kApplied}) {
    EXPECT_EQ(monitor.nextName(), name);
  }
  const auto settings = services().files->dictionaryWithContentsOfFile(kSettings);
  EXPECT_EQ(settings->at("selectedCountry"), PropertyListValue("Canada"));
  const auto after = reportsWithPrefix(*textOrNothing(settings->at("selectedPrefix")));
  ASSERT_EQ(after.size(), 2U);
  for (const auto* process : {"MobilePhone", "InCallService"}) {
    EXPECT_NE(after.at(process).pid, before.at(process).pid) << process;
  }
  expectNoZombie();
}

TEST_F(RealEffects, TheDiallersNewProcessesReadTheNewPrefix) {
  const auto root = open<QDPreferencesListController>();
  writePreference("selectedPrefix", "#31#");
  settle();
  startDialler();
  const auto before = reportsWithPrefix("#31#");
  ASSERT_EQ(before.size(), 2U);
  writePreference("selectedPrefix", "*67");
  settle();
  const auto after = reportsWithPrefix("*67");
  ASSERT_EQ(after.size(), 2U);
  for (const auto* process : {"MobilePhone", "InCallService"}) {
    EXPECT_NE(after.at(process).pid, before.at(process).pid) << process;
  }
  expectNoZombie();
}

TEST_F(RealEffects, TwoRootPanesKillForEachWriteTwice) {
  const auto one = open<QDPreferencesListController>();
  const auto other = open<QDPreferencesListController>();
  take();
  BusMonitor monitor;
  ASSERT_TRUE(joinBus());
  take();
  writePreference("dialerMode", 1);
  writePreference("dialerModeText", "Hold");
  settle();
  const Event changed = PostEvent{NotificationCall::kCFNotificationCenter, kChanged};
  std::vector<Event> expected{changed, changed};
  const auto applied = appliedEvents(4);
  expected.insert(expected.end(), applied.begin(), applied.end());
  EXPECT_THAT(withoutWrites(take()), ElementsAreArray(expected));
  for (const auto* name : {kChanged, kChanged, kApplied, kApplied, kApplied, kApplied}) {
    EXPECT_EQ(monitor.nextName(), name);
  }
  expectNoZombie();
}

TEST_F(RealEffects, ACellsUnchangedValueLeavesTheFileAloneAndRestartsNothing) {
  ASSERT_TRUE(joinBus());
  const auto root = open<QDPreferencesListController>();
  const auto pane = open<QDButtonStyleSelectionController>();
  settle();
  const auto file = root_ / "User/Library/Preferences/me.orlanvey.quietDial.plist";
  struct stat before {};
  ASSERT_EQ(stat(file.c_str(), &before), 0);
  take();
  BusMonitor monitor;

  cast<QDButtonPickerCell>(cellAt(*pane, 1))->setPreferenceValueForKey(1, "dialButtonStyle");
  settle();
  EXPECT_THAT(take(), IsEmpty());
  struct stat after {};
  ASSERT_EQ(stat(file.c_str(), &after), 0);
  EXPECT_EQ(after.st_ino, before.st_ino);
  EXPECT_EQ(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
  EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
  notifications_->broadcast(NotificationCall::kNotifyPost, "the end");
  EXPECT_EQ(monitor.nextName(), "the end");
}

TEST_F(RealEffects, APostOfAnotherProcessAppliesTheSettings) {
  const auto root = open<QDPreferencesListController>();
  ASSERT_TRUE(joinBus());
  take();
  DBusNotifications other([](const std::string&) {});
  other.broadcast(NotificationCall::kCFNotificationCenter, kChanged);
  ASSERT_TRUE(join(other));
  std::vector<Event> events;
  ASSERT_TRUE(PollHost(*notifications_)
                  .runUntil(
                      [&] {
                        const auto more = take();
                        events.insert(events.end(), more.begin(), more.end());
                        return events.size() >= 3;
                      },
                      20s));
  EXPECT_THAT(events, ElementsAreArray(appliedEvents(1)));
}

TEST_F(RealEffects, AFloodOfPostsOfAnotherProcessAppliesTheSettingsAtMostFiveTimesASecond) {
  auto still = services();
  still.clock = clock;
  installServices(still);
  static bool ended = false;
  CFNotificationCenterAddObserver(
      CFNotificationCenterGetDarwinNotifyCenter(), [] { ended = true; }, "the end",
      CFNotificationSuspensionBehavior::kCoalesce);
  const auto root = open<QDPreferencesListController>();
  ASSERT_TRUE(joinBus());
  take();
  DBusNotifications other([](const std::string&) {});
  ASSERT_TRUE(join(other));
  constexpr int kPosts = 3000;
  for (int post = 0; post < kPosts; ++post) {
    other.broadcast(NotificationCall::kCFNotificationCenter, kChanged);
  }
  other.broadcast(NotificationCall::kCFNotificationCenter, "the end");
  ASSERT_TRUE(
      PollHost(other).runUntil([&] { return (other.wanted().events & POLLOUT) == 0; }, 20s));
  ASSERT_TRUE(PollHost(*notifications_).runUntil([] { return ended; }, 20s));
  EXPECT_THAT(take(), ElementsAreArray(appliedEvents(1)));
  clock->advance(0.2);
  settle();
  EXPECT_THAT(take(), ElementsAreArray(appliedEvents(1)));
  clock->advance(60);
  settle();
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(RealEffects, TheDiallerHearsThatTheSettingsAreInForce) {
  writePreference("selectedPrefix", "#31#");
  startDialler();
  ASSERT_EQ(reportsWithPrefix("#31#").size(), 2U);
  writePreference("selectedPrefix", "*67");
  // Posted until heard: the processes may not listen yet when they print their first line.
  std::map<std::string, Report> heard;
  const auto end = std::chrono::steady_clock::now() + 20s;
  while (heard.size() < 2 && std::chrono::steady_clock::now() < end) {
    notifications_->broadcast(NotificationCall::kNotifyPost, kApplied);
    PollHost(*notifications_).runUntil([] { return false; }, 20ms);
    while (const auto line = restarter_->readLine(50ms)) {
      if (line->find("prefix *67,") != std::string::npos) {
        heard[line->substr(0, line->find(' '))];
      }
    }
  }
  EXPECT_TRUE(heard.contains("MobilePhone"));
  EXPECT_TRUE(heard.contains("InCallService"));
}

TEST_F(RealEffects, TheDiallerEndsWithItsRestarter) {
  startDialler();
  const auto reports = reportsWithPrefix("none");
  ASSERT_EQ(reports.size(), 2U);
  EXPECT_EQ(WEXITSTATUS(restarter_->end(SIGTERM)), 0);
  for (const auto& [process, report] : reports) {
    EXPECT_EQ(kill(report.pid, 0), -1) << process;
    EXPECT_EQ(errno, ESRCH);
  }
  startDialler();
  ASSERT_EQ(reportsWithPrefix("none").size(), 2U);
  restarter_->end(SIGKILL);
  // The processes hold the other end of the output until they are gone.
  while (restarter_->readLine()) {
  }
}
