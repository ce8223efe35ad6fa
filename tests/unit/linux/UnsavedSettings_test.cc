#include "linux/UnsavedSettings.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "headless/ManualClock.h"
#include "linux/WatchedFiles.h"
#include "platform/foundation/MainQueue.h"
#include "platform/services.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kPath = "/User/Library/Preferences/s.plist";

// The state of a limit on the size of files, under which no file can be written.
class NoRoom {
 public:
  NoRoom() {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &former_);
    const rlimit none{0, former_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &none);
  }
  ~NoRoom() { setrlimit(RLIMIT_FSIZE, &former_); }
  NoRoom(const NoRoom&) = delete;
  NoRoom& operator=(const NoRoom&) = delete;
  NoRoom(NoRoom&&) = delete;
  NoRoom& operator=(NoRoom&&) = delete;

 private:
  rlimit former_{};
};

class UnsavedSettingsTest : public testing::Test {
 protected:
  UnsavedSettingsTest() {
    Services all;
    all.clock = std::make_shared<ManualClock>();
    installServices(all);
    unsaved_->setChangedHook([this] { ++changes_; });
  }

  // As the panes write one setting.
  bool write(const std::string& key, const PropertyListValue& value) {
    auto settings = files_.dictionaryWithContentsOfFile(kPath).value_or(PropertyListDictionary{});
    settings.insert_or_assign(key, value);
    return files_.writeToFileAtomically(settings, kPath);
  }
  bool failToWrite(const std::string& key, const PropertyListValue& value) {
    const NoRoom noRoom;
    return !write(key, value);
  }

  std::vector<std::string> keys() const {
    std::vector<std::string> names;
    for (const auto& setting : unsaved_->settings()) {
      names.push_back(setting.key);
    }
    return names;
  }
  // How often the hook was called.
  int changes() {
    MainQueue::shared().drain();
    return std::exchange(changes_, 0);
  }

  TemporaryFolder root_;
  std::shared_ptr<UnsavedSettings> unsaved_ = std::make_shared<UnsavedSettings>();
  WatchedFiles files_{std::make_shared<DeviceFileService>(
                          std::make_shared<DevicePaths>(root_.path(), root_ / "installed")),
                      unsaved_};
  int changes_ = 0;
};

}  // namespace

TEST_F(UnsavedSettingsTest, AWriteThatSucceedsLeavesNothingOut) {
  ASSERT_TRUE(write("a", 1));
  EXPECT_TRUE(unsaved_->isEmpty());
  EXPECT_EQ(changes(), 0);
}

TEST_F(UnsavedSettingsTest, AFailedWriteLeavesOutTheSettingThatItWouldHaveChanged) {
  ASSERT_TRUE(write("a", 1));
  ASSERT_TRUE(write("b", 2));
  ASSERT_TRUE(failToWrite("b", 3));
  const auto left = unsaved_->settings();
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(left[0].path, kPath);
  EXPECT_EQ(left[0].key, "b");
  EXPECT_EQ(left[0].value, PropertyListValue(3));
  EXPECT_EQ(left[0].reason, std::errc::file_too_large);
  EXPECT_EQ(changes(), 1);
}

TEST_F(UnsavedSettingsTest, TheFirstWriteOfAllCanFailToo) {
  ASSERT_TRUE(failToWrite("a", ""));
  EXPECT_THAT(keys(), ElementsAre("a"));
}

TEST_F(UnsavedSettingsTest, AValueThatIsStoredAlreadyIsNotLeftOut) {
  ASSERT_TRUE(write("nan", std::numeric_limits<double>::quiet_NaN()));
  ASSERT_TRUE(write("a", 1));
  ASSERT_TRUE(failToWrite("a", 1));
  EXPECT_TRUE(unsaved_->isEmpty());
  EXPECT_EQ(changes(), 0);
}

TEST_F(UnsavedSettingsTest, SeveralAreKeptInTheOrderInWhichTheyFailedAndToldOfTogether) {
  ASSERT_TRUE(failToWrite("b", 1));
  ASSERT_TRUE(failToWrite("a", 1));
  ASSERT_TRUE(failToWrite("c", 1));
  EXPECT_THAT(keys(), ElementsAre("b", "a", "c"));
  EXPECT_EQ(changes(), 1);
  ASSERT_TRUE(failToWrite("b", 2));
  EXPECT_THAT(keys(), ElementsAre("a", "c", "b"));
  EXPECT_EQ(changes(), 1);
}

TEST_F(UnsavedSettingsTest, EachIsLeftOutUntilThatKeyHasBeenWritten) {
  ASSERT_TRUE(write("a", 1));
  ASSERT_TRUE(failToWrite("a", 2));
  ASSERT_TRUE(failToWrite("b", 2));
  ASSERT_EQ(changes(), 1);

  ASSERT_TRUE(write("other", 5));
  EXPECT_THAT(keys(), ElementsAre("a", "b"));
  EXPECT_EQ(changes(), 0);

  ASSERT_TRUE(write("a", 3));
  EXPECT_THAT(keys(), ElementsAre("b"));
  EXPECT_EQ(changes(), 1);

  ASSERT_TRUE(write("b", 2));
  EXPECT_THAT(keys(), IsEmpty());
  EXPECT_EQ(changes(), 1);
}

TEST_F(UnsavedSettingsTest, WhatAnotherProgramHasWrittenMeanwhileIsNotLeftOut) {
  ASSERT_TRUE(failToWrite("a", 2));
  DeviceFileService other(std::make_shared<DevicePaths>(root_.path(), root_ / "installed"));
  ASSERT_TRUE(other.writeToFileAtomically({{"a", 2}}, kPath));
  ASSERT_TRUE(write("b", 1));
  EXPECT_THAT(keys(), IsEmpty());
}

TEST_F(UnsavedSettingsTest, KeysOfDifferentFilesAreDifferentSettings) {
  unsaved_->writeFailed("/User/one", {{"a", 1}}, {}, std::make_error_code(std::errc::io_error));
  unsaved_->writeFailed("/User/other", {{"a", 1}}, {}, std::make_error_code(std::errc::io_error));
  EXPECT_THAT(keys(), ElementsAre("a", "a"));
  unsaved_->written("/User/one", {}, {{"a", 1}});
  ASSERT_THAT(keys(), ElementsAre("a"));
  EXPECT_EQ(unsaved_->settings()[0].path, "/User/other");
}

TEST_F(UnsavedSettingsTest, ForgottenOnesComeBackOnlyWhenTheyFailAgain) {
  ASSERT_TRUE(failToWrite("a", 1));
  ASSERT_TRUE(failToWrite("b", 1));
  ASSERT_EQ(changes(), 1);
  unsaved_->forget();
  EXPECT_TRUE(unsaved_->isEmpty());
  EXPECT_EQ(changes(), 1);
  unsaved_->forget();
  EXPECT_EQ(changes(), 0);
  ASSERT_TRUE(failToWrite("b", 1));
  EXPECT_THAT(keys(), ElementsAre("b"));
}

TEST_F(UnsavedSettingsTest, NothingIsTriedAgain) {
  ASSERT_TRUE(failToWrite("a", 1));
  ASSERT_TRUE(write("b", 1));
  EXPECT_EQ(files_.dictionaryWithContentsOfFile(kPath), (PropertyListDictionary{{"b", 1}}));
}

TEST_F(UnsavedSettingsTest, TheHookMayBeGoneByTheTimeThatItWouldBeCalled) {
  ASSERT_TRUE(failToWrite("a", 1));
  unsaved_->setChangedHook({});
  EXPECT_EQ(changes(), 0);
}
