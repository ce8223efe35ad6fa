#include "changes/settingValues.h"

#include <gtest/gtest.h>

#include "changes/valueFromText.h"

namespace {

TEST(SettingValues, AnAbsentKeyHasItsDefaultAndATextTheWordsOfItsIntegers) {
  EXPECT_EQ(valueInForce({}, settings::kSystemwideStyle), PropertyListValue(2));
  EXPECT_EQ(valueInForce({}, settings::kDialerModeText), PropertyListValue("Swipe"));
  EXPECT_EQ(valueInForce({}, settings::kButtonStyleText), PropertyListValue("Style 1 & 1"));
  EXPECT_EQ(valueInForce({}, settings::kCustomText), std::nullopt);
  EXPECT_EQ(valueInForce({{"dialerMode", 1}}, settings::kDialerMode), PropertyListValue(1));
}

TEST(SettingValues, AreAcceptedByKindAndRange) {
  EXPECT_EQ(accepted(settings::kDialerMode, 2), PropertyListValue(2));
  EXPECT_EQ(accepted(settings::kDialerMode, 3), std::nullopt);
  EXPECT_EQ(accepted(settings::kDialerMode, -1), std::nullopt);
  EXPECT_EQ(accepted(settings::kDialButtonStyle, 0), std::nullopt);
  EXPECT_EQ(accepted(settings::kDialButtonStyle, 4), PropertyListValue(4));
  EXPECT_EQ(accepted(settings::kDialButtonStyle, 5), std::nullopt);
  EXPECT_EQ(accepted(settings::kDialerMode, 1.5), std::nullopt);
  EXPECT_EQ(accepted(settings::kDialerMode, "1"), std::nullopt);
  EXPECT_EQ(accepted(settings::kCustomText, ""), PropertyListValue(""));
  EXPECT_EQ(accepted(settings::kCustomText, 1), std::nullopt);
  EXPECT_EQ(accepted(settings::kSeenTweaks, PropertyListArray{"a"}),
            PropertyListValue(PropertyListArray{"a"}));
  EXPECT_EQ(accepted(settings::kSeenTweaks, PropertyListArray{1}), std::nullopt);
  EXPECT_EQ(accepted(settings::kSeenTweaks, "a"), std::nullopt);
}

TEST(SettingValues, AreChangedWhereSomethingElseThanTheDefaultIsStored) {
  EXPECT_FALSE(isChanged({}, settings::kDialerMode));
  EXPECT_FALSE(isChanged({{"dialerMode", 0}}, settings::kDialerMode));
  EXPECT_TRUE(isChanged({{"dialerMode", 1}}, settings::kDialerMode));
  EXPECT_TRUE(isChanged({{"customText", ""}}, settings::kCustomText));
}

TEST(SettingValues, TextsAndThePrefixGoWithOthers) {
  EXPECT_EQ(leaderOf(settings::kDialerModeText)->key, "dialerMode");
  EXPECT_EQ(leaderOf(settings::kButtonStyleText)->key, "dialButtonStyle");
  EXPECT_EQ(leaderOf(settings::kSelectedPrefix)->key, "selectedCountry");
  for (const auto& setting : {settings::kDialerMode, settings::kCustomText,
                              settings::kSelectedCountry, settings::kSeenTweaks}) {
    EXPECT_EQ(leaderOf(setting), nullptr) << setting.key;
  }
}

TEST(SettingValues, AreTypedAsNumbersOrAsWords) {
  for (const char* const word : {"1", "Hold", "hold", "HOLD "}) {
    EXPECT_EQ(valueFromText(settings::kDialerMode, word), PropertyListValue(1)) << word;
  }
  EXPECT_EQ(valueFromText(settings::kDialerMode, "showalways"), PropertyListValue(2));
  for (const char* const word :
       {"", "3", "-1", "1.0", "0x1", "1 ", "hol", "99999999999999999999"}) {
    EXPECT_EQ(valueFromText(settings::kDialerMode, word), std::nullopt) << word;
  }
  EXPECT_EQ(valueFromText(settings::kCustomText, " a "), PropertyListValue(" a "));
  EXPECT_EQ(valueFromText(settings::kCustomText, "\xFF"), std::nullopt);
  EXPECT_EQ(valueFromText(settings::kSeenTweaks, "a"), std::nullopt);
}

TEST(SettingValues, AreToldInWords) {
  EXPECT_EQ(valuesInWords(settings::kDialerMode), "0 (Swipe), 1 (Hold) or 2 (Show always)");
  EXPECT_EQ(valuesInWords(settings::kDialButtonStyle), "a number from 1 to 4");
}

}  // namespace
