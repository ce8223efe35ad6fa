#include "core/preferenceStore.h"

#include "root/QDPreferencesListController.h"
#include "tests/support/PaneTest.h"

namespace {

using testing::ElementsAre;

class PreferenceStoreTest : public PaneTest {};

TEST_F(PreferenceStoreTest, AMissingFileHoldsNothing) {
  EXPECT_EQ(readPreference("dialerMode"), std::nullopt);
}

TEST_F(PreferenceStoreTest, TheFirstWriteMakesTheFile) {
  writePreference("dialerMode", 0);
  EXPECT_EQ(files->dictionaries[kSettings], (PropertyListDictionary{{"dialerMode", 0}}));
}

TEST_F(PreferenceStoreTest, WritingOneKeyKeepsEveryOtherKeyOfTheFile) {
  const PropertyListDictionary foreign{
      {"real", 0.5},
      {"flag", true},
      {"data", PropertyListData{std::byte{1}}},
      {"date", PropertyListDate{1}},
      {"nested", PropertyListDictionary{{"list", PropertyListArray{1, "two", 3.0}}}},
  };
  files->dictionaries[kSettings] = foreign;
  writePreference("selectedPrefix", "*67");
  auto expected = foreign;
  expected.insert_or_assign("selectedPrefix", "*67");
  EXPECT_EQ(files->dictionaries[kSettings], expected);
}

TEST_F(PreferenceStoreTest, EveryReadLoadsTheFileAgain) {
  store("dialerMode", 1);
  EXPECT_EQ(readPreference("dialerMode"), PropertyListValue(1));
  store("dialerMode", 2);
  EXPECT_EQ(readPreference("dialerMode"), PropertyListValue(2));
}

TEST_F(PreferenceStoreTest, AWriteIsFollowedByOneNotificationThroughTheCentre) {
  writePreference("dialerMode", 1);
  EXPECT_THAT(take(), ElementsAre(WriteEvent{kSettings, {{"dialerMode", 1}}, true},
                                  PostEvent{NotificationCall::kCFNotificationCenter,
                                            "me.orlanvey.quietDial/PreferencesChanged"}));
}

TEST_F(PreferenceStoreTest, TheNotificationGoesOutEvenWhenTheWriteFails) {
  files->failsToWrite = true;
  writePreference("dialerMode", 1);
  EXPECT_EQ(stored("dialerMode"), std::nullopt);
  EXPECT_THAT(takePosts(), ElementsAre("me.orlanvey.quietDial/PreferencesChanged"));
}

}  // namespace
