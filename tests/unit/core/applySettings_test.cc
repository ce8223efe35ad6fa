#include "core/applySettings.h"

#include "core/preferenceStore.h"
#include "root/QDPreferencesListController.h"
#include "tests/support/PaneTest.h"
#include "tests/support/appliedEvents.h"

extern "C" const ClassTable quietDialPreferencesClasses;

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

class FailingProcesses : public ProcessService {
 public:
  explicit FailingProcesses(std::shared_ptr<Recorder> recorder) : recorder_(std::move(recorder)) {}
  int posixSpawn(int& /*pid*/, const std::string& /*path*/,
                 const std::vector<std::string>& /*arguments*/,
                 const std::vector<std::string>* /*environment*/) override {
    return 2;
  }
  int waitpid(int pid, int& /*status*/, int options) override {
    recorder_->record(WaitEvent{options});
    waitedFor = pid;
    return -1;
  }
  int waitedFor = 0;

 private:
  std::shared_ptr<Recorder> recorder_;
};

class ApplySettingsTest : public PaneTest {};

TEST_F(ApplySettingsTest, SpawnsThenWaitsThenPosts) {
  EXPECT_EQ(applySettings(), 0U);
  EXPECT_THAT(take(), ElementsAreArray(kApplied));
}

TEST_F(ApplySettingsTest, TheObserverAndTheRowActionDoTheSame) {
  preferencesDidChange();
  EXPECT_THAT(take(), ElementsAreArray(kApplied));
  allocInit<QDPreferencesListController>()->applyChangedSettings();
  EXPECT_THAT(take(), ElementsAreArray(kApplied));
}

TEST_F(ApplySettingsTest, AFailedSpawnLeavesNoProcessToWaitForAndStillPosts) {
  auto processes = std::make_shared<FailingProcesses>(recorder);
  auto changed = services();
  changed.processes = processes;
  installServices(changed);
  applySettings();
  EXPECT_EQ(processes->waitedFor, -1);
  EXPECT_THAT(takePosts(), ElementsAre("me.orlanvey.quietdial/prefsChanged"));
}

TEST_F(ApplySettingsTest, OneWriteIsOneKillForEachRootPaneThatWasMade) {
  NSBundle::load(kBundle, quietDialPreferencesClasses);
  writePreference("dialerMode", 1);
  settle();
  EXPECT_THAT(takePosts(), ElementsAre("me.orlanvey.quietDial/PreferencesChanged"));

  open<QDPreferencesListController>();
  writePreference("dialerMode", 2);
  settle();
  EXPECT_THAT(takePosts(), ElementsAre("me.orlanvey.quietDial/PreferencesChanged",
                                       "me.orlanvey.quietdial/prefsChanged"));

  // The registration outlives its pane.
  inner->popViewControllerAnimated(false);
  open<QDPreferencesListController>();
  take();
  writePreference("dialerMode", 0);
  settle();
  std::vector<Event> expected{WriteEvent{kSettings, {{"dialerMode", 0}}, true},
                              PostEvent{NotificationCall::kCFNotificationCenter,
                                        "me.orlanvey.quietDial/PreferencesChanged"}};
  expected.insert(expected.end(), kApplied.begin(), kApplied.end());
  expected.insert(expected.end(), kApplied.begin(), kApplied.end());
  EXPECT_THAT(take(), ElementsAreArray(expected));
}

}  // namespace
