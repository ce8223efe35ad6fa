#include "changes/changeSettings.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "core/preferenceStore.h"
#include "linux/DeviceFileService.h"
#include "linux/storedSettings.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using Outcome = ChangeResult::Outcome;

class ChangeSettings : public testing::Test {
 protected:
  void store(const PropertyListDictionary& settings) const {
    ASSERT_TRUE(DeviceFileService(std::make_shared<DevicePaths>(paths_))
                    .writeToFileAtomically(settings, std::string(kSettingsPath)));
  }
  PropertyListDictionary stored() const { return readStoredSettings(paths_).settings; }
  std::filesystem::path file() const { return *paths_.forWriting(std::string(kSettingsPath)); }

  ChangeResult setMode(int mode) {
    return changeSettings(paths_, {.decide =
                                       [mode](SettingsChange& change) {
                                         change.set(settings::kDialerMode, mode);
                                         return true;
                                       },
                                   .announce = [this] { ++announced_; }});
  }

  TemporaryFolder root_;
  DevicePaths paths_{root_.path().string(), "/nowhere"};
  int announced_ = 0;
};

TEST_F(ChangeSettings, MergesAndTellsOnce) {
  store({{"other", 1}, {"customText", "a"}});
  const auto result = setMode(1);
  EXPECT_EQ(result.outcome, Outcome::kChanged);
  EXPECT_EQ(result.differences.size(), 2U);
  EXPECT_EQ(stored(),
            (PropertyListDictionary{
                {"other", 1}, {"customText", "a"}, {"dialerMode", 1}, {"dialerModeText", "Hold"}}));
  EXPECT_EQ(announced_, 1);
}

TEST_F(ChangeSettings, WritesAndTellsNothingWhereNothingChanges) {
  setMode(1);
  const auto time = std::filesystem::last_write_time(file());
  EXPECT_EQ(setMode(1).outcome, Outcome::kUnchanged);
  EXPECT_EQ(std::filesystem::last_write_time(file()), time);
  EXPECT_EQ(announced_, 1);
}

TEST_F(ChangeSettings, WritesNothingWhereItIsRefused) {
  const auto result = changeSettings(paths_, {.decide =
                                                  [](SettingsChange& change) {
                                                    change.set(settings::kDialerMode, 1);
                                                    return false;
                                                  },
                                              .announce = [this] { ++announced_; }});
  EXPECT_EQ(result.outcome, Outcome::kUnchanged);
  EXPECT_FALSE(std::filesystem::exists(file()));
  EXPECT_EQ(announced_, 0);
}

TEST_F(ChangeSettings, TellsThatSomebodyElseHasWrittenSince) {
  const auto result = changeSettings(paths_, {.decide =
                                                  [](SettingsChange& change) {
                                                    change.set(settings::kDialerMode, 1);
                                                    return true;
                                                  },
                                              .announce =
                                                  [this] {
                                                    store({{"dialerMode", 2}});
                                                  }});
  EXPECT_EQ(result.outcome, Outcome::kOverwritten);
  EXPECT_EQ(stored().at("dialerMode"), PropertyListValue(2));
}

TEST_F(ChangeSettings, IsKeptWhereSomebodyElseHasWrittenAnotherKeySince) {
  const auto result = changeSettings(paths_, {.decide =
                                                  [](SettingsChange& change) {
                                                    change.set(settings::kDialerMode, 1);
                                                    return true;
                                                  },
                                              .announce =
                                                  [this] {
                                                    auto now = stored();
                                                    now.insert_or_assign("customText", "b");
                                                    store(now);
                                                  }});
  EXPECT_EQ(result.outcome, Outcome::kChanged);
}

TEST_F(ChangeSettings, LeavesAFileAloneThatCannotBeRead) {
  store({});
  std::ofstream(file()) << "no property list";
  const auto result = setMode(1);
  EXPECT_EQ(result.outcome, Outcome::kUnreadable);
  EXPECT_EQ(result.fault, "it is no property list with settings");
  EXPECT_EQ(std::filesystem::file_size(file()), 16U);
  EXPECT_EQ(announced_, 0);
}

TEST_F(ChangeSettings, ReplacesAFileThatCannotBeReadWhereItIsToAndKeepsIt) {
  store({});
  std::ofstream(file()) << "no property list";
  const auto result =
      changeSettings(paths_, {.decide = [](SettingsChange& /*change*/) { return true; },
                              .announce = [this] { ++announced_; },
                              .replacesUnreadable = true});
  EXPECT_EQ(result.outcome, Outcome::kChanged);
  EXPECT_EQ(readStoredSettings(paths_).state, StoredSettings::State::kRead);
  EXPECT_TRUE(std::filesystem::exists(file().string() + ".damaged"));
  EXPECT_EQ(announced_, 1);
}

TEST_F(ChangeSettings, TellsWhyItCannotWrite) {
  std::ofstream(root_.path() / "User") << "in the way";
  const auto result = setMode(1);
  EXPECT_EQ(result.outcome, Outcome::kNotWritten);
  EXPECT_NE(result.fault, "");
  EXPECT_EQ(announced_, 0);
}

}  // namespace
