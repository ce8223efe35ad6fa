#include "changes/SettingsChange.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using Stored = PropertyListDictionary;

TEST(SettingsChange, AModeTakesItsTextAlong) {
  SettingsChange change(Stored{{"dialerMode", 0}, {"dialerModeText", "Swipe"}, {"other", "kept"}});
  change.set(settings::kDialerMode, 1);
  EXPECT_EQ(change.after(),
            (Stored{{"dialerMode", 1}, {"dialerModeText", "Hold"}, {"other", "kept"}}));
}

TEST(SettingsChange, AnAbsentModeIsStoredEvenWhereItIsTheDefault) {
  SettingsChange change(Stored{});
  change.set(settings::kSystemwideStyle, 2);
  EXPECT_EQ(change.after(),
            (Stored{{"systemwideStyle", 2}, {"systemwideStyleText", "Show always"}}));
}

TEST(SettingsChange, AModesTextIsBroughtUpToDate) {
  SettingsChange change(Stored{{"dialerMode", 1}, {"dialerModeText", "Swipe"}});
  change.set(settings::kDialerMode, 1);
  EXPECT_EQ(change.after(), (Stored{{"dialerMode", 1}, {"dialerModeText", "Hold"}}));
}

TEST(SettingsChange, AButtonTakesTheTextOfBothAlong) {
  SettingsChange change(Stored{{"systemwideButtonStyle", 4}});
  change.set(settings::kDialButtonStyle, 3);
  EXPECT_EQ(change.after(), (Stored{{"dialButtonStyle", 3},
                                    {"systemwideButtonStyle", 4},
                                    {"buttonStyleText", "Style 3 & 4"}}));
}

TEST(SettingsChange, AButtonThatIsNotSetCountsAsItsDefault) {
  SettingsChange change(Stored{});
  change.set(settings::kSystemwideButtonStyle, 2);
  EXPECT_EQ(change.after(),
            (Stored{{"systemwideButtonStyle", 2}, {"buttonStyleText", "Style 1 & 2"}}));
}

TEST(SettingsChange, AButtonThatHoldsWhatItCannotBeCountsAsItsDefault) {
  SettingsChange change(Stored{{"dialButtonStyle", "nine"}});
  change.set(settings::kSystemwideButtonStyle, 2);
  EXPECT_EQ(change.after().at("buttonStyleText"), PropertyListValue("Style 1 & 2"));
}

TEST(SettingsChange, ACountryTakesItsPrefixAlong) {
  SettingsChange change(Stored{{"customPrefix", "*99"}});
  change.set(settings::kSelectedCountry, "UK ");
  EXPECT_EQ(
      change.after(),
      (Stored{{"customPrefix", "*99"}, {"selectedCountry", "UK "}, {"selectedPrefix", "141"}}));
}

TEST(SettingsChange, TheCustomRowTakesTheStoredPrefix) {
  SettingsChange change(Stored{{"customPrefix", "*99"}});
  change.chooseCustom();
  EXPECT_EQ(change.after(), (Stored{{"customPrefix", "*99"},
                                    {"selectedCountry", "Custom (enter below)"},
                                    {"selectedPrefix", "*99"}}));
}

TEST(SettingsChange, TheCustomRowWithoutAPrefixLeavesNone) {
  SettingsChange change(Stored{});
  change.set(settings::kSelectedCountry, kCustomRow);
  EXPECT_EQ(change.after().at("selectedPrefix"), PropertyListValue(""));
}

TEST(SettingsChange, ACustomPrefixIsInForceOnlyWhileItsRowIsChosen) {
  SettingsChange country(Stored{{"selectedCountry", "Canada"}, {"selectedPrefix", "*67"}});
  country.set(settings::kCustomPrefix, "*99");
  EXPECT_EQ(country.after().at("selectedPrefix"), PropertyListValue("*67"));

  SettingsChange custom(Stored{{"selectedCountry", kCustomRow}, {"selectedPrefix", ""}});
  custom.set(settings::kCustomPrefix, "*99");
  EXPECT_EQ(custom.after().at("selectedPrefix"), PropertyListValue("*99"));
}

TEST(SettingsChange, ResettingLeavesOutWhatIsChangedWithWhatGoesAlong) {
  SettingsChange change(Stored{{"dialerMode", 1},
                               {"dialerModeText", "Hold"},
                               {"selectedCountry", "Canada"},
                               {"selectedPrefix", "*67"},
                               {"customText", "Sure?"},
                               {"seen_tweaks", PropertyListArray{"a"}},
                               {"other", "kept"}});
  change.resetAll();
  EXPECT_EQ(change.after(), (Stored{{"other", "kept"}}));
}

TEST(SettingsChange, ResettingChangesNothingWhereEverythingHasItsDefault) {
  SettingsChange change(Stored{{"dialerMode", 0},
                               {"dialerModeText", "Swipe"},
                               {"dialButtonStyle", 1},
                               {"systemwideButtonStyle", 1},
                               {"buttonStyleText", "Style 1 & 1"},
                               {"selectedCountry", "Most other counties"},
                               {"selectedPrefix", "#31#"},
                               {"customPrefix", ""}});
  change.resetAll();
  EXPECT_TRUE(change.isEmpty());
}

TEST(SettingsChange, ResettingOneButtonKeepsTheOther) {
  SettingsChange change(Stored{
      {"dialButtonStyle", 2}, {"systemwideButtonStyle", 3}, {"buttonStyleText", "Style 2 & 3"}});
  change.reset(settings::kDialButtonStyle);
  EXPECT_EQ(change.after(),
            (Stored{{"systemwideButtonStyle", 3}, {"buttonStyleText", "Style 1 & 3"}}));
  change.reset(settings::kSystemwideButtonStyle);
  EXPECT_EQ(change.after(), Stored());
}

TEST(SettingsChange, ResettingOneButtonThatHasItsDefaultChangesNothing) {
  SettingsChange change(Stored{
      {"dialButtonStyle", 1}, {"systemwideButtonStyle", 3}, {"buttonStyleText", "Style 1 & 3"}});
  change.reset(settings::kDialButtonStyle);
  EXPECT_TRUE(change.isEmpty());
}

TEST(SettingsChange, ResettingAModePutsATextRightThatDoesNotFit) {
  SettingsChange change(Stored{{"dialerMode", 0}, {"dialerModeText", "Hold"}});
  change.reset(settings::kDialerMode);
  EXPECT_EQ(change.after(), Stored());
}

TEST(SettingsChange, ResettingTheCustomPrefixWhileItsRowIsChosenLeavesNoPrefix) {
  SettingsChange change(
      Stored{{"selectedCountry", kCustomRow}, {"selectedPrefix", "*99"}, {"customPrefix", "*99"}});
  change.reset(settings::kCustomPrefix);
  EXPECT_EQ(change.after(), (Stored{{"selectedCountry", kCustomRow}, {"selectedPrefix", ""}}));
}

TEST(SettingsChange, TellsWhatDiffersInTheOrderOfTheTable) {
  SettingsChange change(Stored{{"selectedCountry", "Canada"}, {"selectedPrefix", "*67"}});
  change.set(settings::kSelectedCountry, "US");
  change.set(settings::kDialerMode, 2);
  std::vector<std::string> keys;
  for (const auto& difference : change.differences()) {
    keys.emplace_back(difference.setting->key);
  }
  // The prefix of the two is the same.
  EXPECT_THAT(keys, testing::ElementsAre("dialerMode", "dialerModeText", "selectedCountry"));
}

}  // namespace
