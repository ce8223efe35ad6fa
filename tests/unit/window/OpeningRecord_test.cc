#include "settings/bundles/OpeningRecord.h"

#include <gtest/gtest.h>

#include "platform/classes.h"
#include "platform/preferences/PSListController.h"
#include "tests/support/TemporaryFolder.h"

namespace {

class OpeningRecordTest : public testing::Test {
 protected:
  OpeningRecordTest() { registerClasses(platformClasses()); }

  // What a start after a crash at this moment would find.
  bool wouldBeHeldBack(const char* className) const {
    return OpeningRecord(folder_).tookProgramDown(className);
  }

  TemporaryFolder place_;
  QString folder_ = QString::fromStdString(place_ / "Opening");
};

TEST_F(OpeningRecordTest, APaneIsBeingOpenedFromWhenItIsMadeUntilItIsShown) {
  OpeningRecord record(folder_);
  EXPECT_FALSE(record.isOpening());
  const auto pane = makePane("PSListController", nullptr);
  EXPECT_TRUE(record.isOpening());
  EXPECT_FALSE(record.tookProgramDown("PSListController"));
  EXPECT_TRUE(wouldBeHeldBack("PSListController"));
  record.succeed();
  EXPECT_FALSE(record.isOpening());
  EXPECT_FALSE(wouldBeHeldBack("PSListController"));
}

TEST_F(OpeningRecordTest, WhatIsLeftUnshownAtTheEndTookNothingDown) {
  {
    const OpeningRecord record(folder_);
    makePane("PSListController", nullptr);
  }
  EXPECT_FALSE(wouldBeHeldBack("PSListController"));
}

TEST_F(OpeningRecordTest, APaneThatIsMadeAfterwardsIsNobodysConcern) {
  { const OpeningRecord record(folder_); }
  EXPECT_TRUE(makePane("PSListController", nullptr));
}

TEST_F(OpeningRecordTest, EachPageIsToldApart) {
  OpeningRecord record(folder_);
  record.begin("First");
  record.begin("Second");
  EXPECT_TRUE(wouldBeHeldBack("First"));
  EXPECT_TRUE(wouldBeHeldBack("Second"));
  EXPECT_FALSE(wouldBeHeldBack("Third"));
}

TEST_F(OpeningRecordTest, ANameLeadsToNoOtherFolder) {
  OpeningRecord record(folder_);
  for (const char* name : {"../Escaped", "..", ".", "/Escaped", "A/B"}) {
    record.begin(name);
    EXPECT_TRUE(wouldBeHeldBack(name)) << name;
  }
  EXPECT_FALSE(wouldBeHeldBack("A"));
  for (const auto& entry : std::filesystem::recursive_directory_iterator(place_.path())) {
    EXPECT_EQ(entry.path().parent_path() == place_.path(), entry.is_directory()) << entry.path();
  }
}

TEST_F(OpeningRecordTest, WhereNothingCanBeWrittenNothingIsKept) {
  writeBytes(place_ / "file", "");
  OpeningRecord record(QString::fromStdString(place_ / "file/Opening"));
  record.begin("First");
  EXPECT_FALSE(record.isOpening());
  EXPECT_FALSE(record.tookProgramDown("First"));
}

TEST_F(OpeningRecordTest, APageWithoutANameIsNotKept) {
  OpeningRecord record(folder_);
  record.begin("");
  EXPECT_FALSE(record.isOpening());
}

}  // namespace
