#include "linux/diallerSettings.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "core/preferenceStore.h"
#include "linux/propertylist/PropertyListSerialization.h"
#include "tests/support/TemporaryFolder.h"

namespace {

class DiallerSettingsTest : public testing::Test {
 protected:
  void store(std::string_view bytes) {
    writeBytes(paths.forWriting(std::string(kSettingsPath)).value(), bytes);
  }
  void store(const PropertyListDictionary& values) { store(bytesFromPropertyList(values).value()); }
  DiallerSettings read() const { return readDiallerSettings(paths); }

  TemporaryFolder folder;
  DevicePaths paths{folder.path().string(), (folder / "none").string()};
};

TEST_F(DiallerSettingsTest, NewSettingsSwipeOnTheKeypadAndShowBothOnTheCallScreen) {
  const auto settings = read();
  EXPECT_EQ(settings.keypad.mode, CallMode::kSwipe);
  EXPECT_EQ(settings.call.mode, CallMode::kAlways);
  EXPECT_EQ(settings.keypad.button, 1);
  EXPECT_EQ(settings.call.button, 1);
  EXPECT_EQ(settings.question + settings.twoButtonQuestion, "");
}

TEST_F(DiallerSettingsTest, ReadsEachKeyForItself) {
  store(PropertyListDictionary{{"dialerMode", 1},
                               {"systemwideStyle", 0},
                               {"dialButtonStyle", 3},
                               {"systemwideButtonStyle", 4},
                               {"customText", "Sure?"},
                               {"systemWideTwoButtonText", "How?"}});
  const auto settings = read();
  EXPECT_EQ(settings.keypad.mode, CallMode::kHold);
  EXPECT_EQ(settings.call.mode, CallMode::kSwipe);
  EXPECT_EQ(settings.keypad.button, 3);
  EXPECT_EQ(settings.call.button, 4);
  EXPECT_EQ(settings.question, "Sure?");
  EXPECT_EQ(settings.twoButtonQuestion, "How?");
}

TEST_F(DiallerSettingsTest, OtherValuesShowBothButtonsWithTheFirstPicture) {
  store(PropertyListDictionary{{"dialerMode", 7},
                               {"systemwideStyle", -1},
                               {"dialButtonStyle", 0},
                               {"systemwideButtonStyle", PropertyListArray{}},
                               {"customText", 5}});
  const auto settings = read();
  EXPECT_EQ(settings.keypad.mode, CallMode::kAlways);
  EXPECT_EQ(settings.call.mode, CallMode::kAlways);
  EXPECT_EQ(settings.keypad.button, 1);
  EXPECT_EQ(settings.call.button, 1);
  EXPECT_EQ(settings.question, "");
}

TEST_F(DiallerSettingsTest, AFileThatIsNoneCountsAsNew) {
  store("no list");
  EXPECT_EQ(read().call.mode, CallMode::kAlways);
}

}  // namespace
