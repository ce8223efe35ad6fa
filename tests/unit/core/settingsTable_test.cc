#include "core/settingsTable.h"

#include <map>
#include <set>

#include "linux/propertylist/PropertyListSerialization.h"
#include "prefix/QDCountryPrefixController.h"
#include "root/QDPreferencesListController.h"
#include "styles/QDButtonStyleSelectionController.h"
#include "styles/QDDialerStyleSelectionController.h"
#include "styles/QDSystemwideStyleSelectionController.h"
#include "tests/support/PaneTest.h"
#include "tests/support/TemporaryFolder.h"

extern "C" const ClassTable quietDialPreferencesClasses;

namespace {

using settings::Kind;
using settings::Setting;
using Value = PropertyListValue;

std::optional<Value> valueOf(const settings::Default& value) {
  if (const auto* number = std::get_if<int>(&value)) {
    return Value(*number);
  }
  if (const auto* text = std::get_if<std::string_view>(&value)) {
    return Value(std::string(*text));
  }
  return std::nullopt;
}

// What goes with the default of an integer, in words.
std::string wordsFor(const Setting& setting) {
  const int number = std::get<int>(setting.defaultValue);
  if (!setting.labels.empty()) {
    return std::string(setting.labels[static_cast<std::size_t>(number - setting.least)]);
  }
  return "Style " + std::to_string(std::get<int>(settings::kDialButtonStyle.defaultValue)) + " & " +
         std::to_string(std::get<int>(settings::kSystemwideButtonStyle.defaultValue));
}

// The default of a key, or of the integer whose words it holds.
std::optional<Value> defaultOf(std::string_view key) {
  const auto* const setting = settings::find(key);
  if (!setting) {
    return std::nullopt;
  }
  for (const auto& other : settings::kAll) {
    if (other.textKey == key) {
      return Value(wordsFor(other));
    }
  }
  return valueOf(setting->defaultValue);
}

TEST(SettingsTable, IsTheKeysOfTheFileWithTheirKinds) {
  std::map<std::string_view, Kind> keys;
  for (const auto& setting : settings::kAll) {
    EXPECT_TRUE(keys.emplace(setting.key, setting.kind).second) << setting.key;
  }
  const std::map<std::string_view, Kind> expected{
      {"dialerMode", Kind::kInteger},      {"dialerModeText", Kind::kText},
      {"systemwideStyle", Kind::kInteger}, {"systemwideStyleText", Kind::kText},
      {"customText", Kind::kText},         {"systemWideTwoButtonText", Kind::kText},
      {"dialButtonStyle", Kind::kInteger}, {"systemwideButtonStyle", Kind::kInteger},
      {"buttonStyleText", Kind::kText},    {"selectedCountry", Kind::kText},
      {"selectedPrefix", Kind::kText},     {"customPrefix", Kind::kText},
      {"seen_tweaks", Kind::kTextList},
  };
  EXPECT_EQ(keys, expected);
}

TEST(SettingsTable, FindsItsKeysAndNoOthers) {
  for (const auto& setting : settings::kAll) {
    ASSERT_NE(settings::find(setting.key), nullptr);
    EXPECT_EQ(settings::find(setting.key)->key, setting.key);
  }
  EXPECT_EQ(settings::find("dialermode"), nullptr);
  EXPECT_EQ(settings::find(""), nullptr);
}

TEST(SettingsTable, DefaultsAreOfTheirKindAndRange) {
  for (const auto& setting : settings::kAll) {
    SCOPED_TRACE(setting.key);
    EXPECT_EQ(std::holds_alternative<int>(setting.defaultValue), setting.kind == Kind::kInteger);
    if (const auto* number = std::get_if<int>(&setting.defaultValue)) {
      EXPECT_LE(setting.least, *number);
      EXPECT_LE(*number, setting.greatest);
    }
  }
}

TEST(SettingsTable, LabelsAreThereForEveryValueOrForNone) {
  for (const auto& setting : settings::kAll) {
    SCOPED_TRACE(setting.key);
    if (!setting.labels.empty()) {
      EXPECT_EQ(static_cast<int>(setting.labels.size()), setting.greatest - setting.least + 1);
    }
  }
}

TEST(SettingsTable, WordsAreStoredUnderTheTextKeyOfTheirInteger) {
  std::map<std::string_view, std::string_view> textKeys;
  for (const auto& setting : settings::kAll) {
    if (!setting.textKey.empty()) {
      textKeys.emplace(setting.key, setting.textKey);
    }
  }
  const std::map<std::string_view, std::string_view> expected{
      {"dialerMode", "dialerModeText"},
      {"systemwideStyle", "systemwideStyleText"},
      {"dialButtonStyle", "buttonStyleText"},
      {"systemwideButtonStyle", "buttonStyleText"},
  };
  EXPECT_EQ(textKeys, expected);
}

TEST(SettingsTable, TheSupportMailTakesTheseKeysAlong) {
  const auto information =
      propertyListFromBytes(bytesOf(std::filesystem::path(QD_RESOURCES) / "Info.plist"));
  ASSERT_TRUE(information && information->get<PropertyListDictionary>());
  PropertyListArray keys;
  for (const auto& setting : settings::kAll) {
    keys.emplace_back(std::string(setting.key));
  }
  EXPECT_EQ(information->get<PropertyListDictionary>()->at("TBSupportPreferenceKeys"),
            PropertyListValue(keys));
}

TEST(SettingsTable, EverySettingHasATitleAndWordsHaveThatOfTheirInteger) {
  for (const auto& setting : settings::kAll) {
    SCOPED_TRACE(setting.key);
    EXPECT_FALSE(setting.title.empty());
    if (!setting.textKey.empty()) {
      EXPECT_EQ(settings::find(setting.textKey)->title, setting.title);
    }
  }
}

TEST(SettingsTable, TheResourceListsHaveTheSameDefaultsAndTitles) {
  std::set<std::string> compared;
  for (const auto& file : std::filesystem::directory_iterator(QD_RESOURCES)) {
    if (!file.path().string().ends_with("Preferences.plist")) {
      continue;
    }
    SCOPED_TRACE(file.path());
    const auto list = propertyListFromBytes(bytesOf(file.path()));
    ASSERT_TRUE(list && list->get<PropertyListDictionary>());
    for (const auto& item :
         *list->get<PropertyListDictionary>()->at("items").get<PropertyListArray>()) {
      const auto& row = *item.get<PropertyListDictionary>();
      const auto key = row.find("key");
      if (key == row.end()) {
        EXPECT_FALSE(row.contains("default"));
        continue;
      }
      const auto& name = *key->second.get<std::string>();
      SCOPED_TRACE(name);
      ASSERT_TRUE(row.contains("default"));
      EXPECT_EQ(row.at("default"), defaultOf(name));
      EXPECT_EQ(*row.at("label").get<std::string>(), settings::find(name)->title);
      compared.insert(name);
    }
  }
  EXPECT_EQ(compared, (std::set<std::string>{"selectedPrefix", "dialerModeText",
                                             "systemwideStyleText", "buttonStyleText"}));
}

class SettingsTablePanes : public PaneTest {};

TEST_F(SettingsTablePanes, WriteTheDefaultsOfTheTableAndNothingElse) {
  NSBundle::load(kBundle, quietDialPreferencesClasses);
  open<QDPreferencesListController>();
  open<QDCountryPrefixController>();
  open<QDSystemwideStyleSelectionController>();
  open<QDDialerStyleSelectionController>();
  open<QDButtonStyleSelectionController>();
  settle();
  PropertyListDictionary expected;
  for (const auto& setting : settings::kAll) {
    if (const auto value = defaultOf(setting.key)) {
      expected.insert_or_assign(std::string(setting.key), *value);
    }
  }
  EXPECT_EQ(expected.size(), 10U);
  EXPECT_EQ(files->dictionaries[kSettings], expected);
}

}  // namespace
