#include <functional>

#include "prefix/QDCountryPrefixController.h"
#include "root/QDPreferencesListController.h"
#include "styles/QDButtonPickerCell.h"
#include "styles/QDButtonStyleSelectionController.h"
#include "styles/QDDialerStyleSelectionController.h"
#include "styles/QDDialerTabStyleCell.h"
#include "styles/QDSystemwideStyleCell.h"
#include "styles/QDSystemwideStyleSelectionController.h"
#include "tests/support/PaneTest.h"
#include "tests/support/appliedEvents.h"

extern "C" const ClassTable quietDialPreferencesClasses;

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;
using Value = PropertyListValue;

constexpr const char* kKey = "aKeyOfTheTest";
constexpr int kCellsRow = 1;  // below a group, in each pane with a cell that stores

const Event kChangePosted =
    PostEvent{NotificationCall::kCFNotificationCenter, "me.orlanvey.quietDial/PreferencesChanged"};
// What holds for every pane and cell that stores settings by itself. All panes are open, and so one
// first page is registered for changes.
class PreferenceWriters : public PaneTest {
 protected:
  struct Writer {
    std::string name;
    bool skipsEqualValues;
    std::function<void(const Value&)> write;  // under kKey
  };

  PreferenceWriters() {
    NSBundle::load(kBundle, quietDialPreferencesClasses);
    root_ = open<QDPreferencesListController>();
    prefixes_ = open<QDCountryPrefixController>();
    systemwide_ = open<QDSystemwideStyleSelectionController>();
    dialer_ = open<QDDialerStyleSelectionController>();
    buttons_ = open<QDButtonStyleSelectionController>();
    row_->setPropertyForKey(Value(kKey), "key");
    settle();
    take();
  }

  std::vector<Writer> writers() {
    return {
        {"first page", false,
         [this](const Value& value) { root_->setPreferenceValueSpecifier(value, *row_); }},
        {"prefix page", false,
         [this](const Value& value) { prefixes_->setPreferenceValueForKey(value, kKey); }},
        {"system-wide page", false,
         [this](const Value& value) { systemwide_->setPreferenceValueSpecifier(value, *row_); }},
        {"dial tab cell", true,
         [this](const Value& value) {
           cast<QDDialerTabStyleCell>(cellAt(*dialer_, kCellsRow))
               ->setPreferenceValueForKey(value, kKey);
         }},
        {"system-wide cell", true,
         [this](const Value& value) {
           cast<QDSystemwideStyleCell>(cellAt(*systemwide_, kCellsRow))
               ->setPreferenceValueForKey(value, kKey);
         }},
        {"button cell", true,
         [this](const Value& value) {
           cast<QDButtonPickerCell>(cellAt(*buttons_, kCellsRow))
               ->setPreferenceValueForKey(value, kKey);
         }},
    };
  }

  // A write of the whole file with that value, and the notification after it.
  std::vector<Event> written(const Value& value) const {
    auto settings = files->dictionaries[kSettings];
    settings.insert_or_assign(kKey, value);
    return {WriteEvent{kSettings, settings, true}, kChangePosted};
  }

 private:
  std::shared_ptr<QDPreferencesListController> root_;
  std::shared_ptr<QDCountryPrefixController> prefixes_;
  std::shared_ptr<QDSystemwideStyleSelectionController> systemwide_;
  std::shared_ptr<QDDialerStyleSelectionController> dialer_;
  std::shared_ptr<QDButtonStyleSelectionController> buttons_;
  std::shared_ptr<PSSpecifier> row_ = PSSpecifier::groupSpecifierWithName("");
};

TEST_F(PreferenceWriters, AnAbsentKeyIsWrittenEvenWithZeroOrTheEmptyText) {
  for (const auto& writer : writers()) {
    for (const Value& value : {Value(0), Value(""), Value(false)}) {
      files->dictionaries[kSettings].erase(kKey);
      writer.write(value);
      EXPECT_THAT(take(), ElementsAreArray(written(value))) << writer.name;
    }
  }
}

TEST_F(PreferenceWriters, TheStoredValueAgainIsWrittenByPanesAndSkippedByCells) {
  for (const auto& writer : writers()) {
    store(kKey, "the same");
    writer.write("the same");
    if (writer.skipsEqualValues) {
      EXPECT_THAT(take(), IsEmpty()) << writer.name;
    } else {
      EXPECT_THAT(take(), ElementsAreArray(written("the same"))) << writer.name;
    }
  }
}

TEST_F(PreferenceWriters, OneWriteIsOneKillAndOnePostForEachFirstPage) {
  std::int64_t next = 1;
  for (const int firstPages : {1, 2}) {
    for (const auto& writer : writers()) {
      writer.write(++next);
      settle();
      auto expected = written(next);
      for (int page = 0; page < firstPages; ++page) {
        expected.insert(expected.end(), kApplied.begin(), kApplied.end());
      }
      EXPECT_THAT(take(), ElementsAreArray(expected)) << writer.name;
    }
    allocInit<QDPreferencesListController>();
  }
}

TEST_F(PreferenceWriters, ASkippedWriteKillsNothing) {
  for (const auto& writer : writers()) {
    if (writer.skipsEqualValues) {
      store(kKey, 2);
      writer.write(2);
      settle();
      EXPECT_THAT(take(), IsEmpty()) << writer.name;
    }
  }
}

}  // namespace
