#include "changes/importSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "changes/exportSettings.h"
#include "changes/settingValues.h"
#include "linux/propertylist/BinaryPropertyListWriter.h"
#include "linux/propertylist/PropertyListSerialization.h"

namespace {

using Stored = PropertyListDictionary;

const Stored kFull{{"dialerMode", 1},
                   {"dialerModeText", "Hold"},
                   {"systemwideStyle", 0},
                   {"systemwideStyleText", "Swipe"},
                   {"customText", "Are \"you\" sure?\n\\"},
                   {"systemWideTwoButtonText", "ä 日本"},
                   {"dialButtonStyle", 3},
                   {"systemwideButtonStyle", 4},
                   {"buttonStyleText", "Style 3 & 4"},
                   {"selectedCountry", "Custom (enter below)"},
                   {"selectedPrefix", "*31#"},
                   {"customPrefix", "*31#"},
                   {"seen_tweaks", PropertyListArray{"me.orlanvey.a", "b"}}};

std::string document(const std::string& settings) {
  return "{\"format\": \"quietdial-settings\",\n \"version\": 1,\n \"settings\": {\n" + settings +
         "}}";
}

std::string refusalOf(const std::string& bytes) {
  SettingsChange change(Stored{{"dialerMode", 2}, {"dialerModeText", "Show always"}});
  const auto refusal = importSettings(bytes, change);
  EXPECT_TRUE(change.isEmpty() || !refusal);
  return refusal ? refusal->place + ": " + refusal->sentence : "";
}

// Whether everything fits together that goes together.
void expectConsistent(const Stored& stored) {
  for (const auto& [key, value] : stored) {
    const auto* const setting = settings::find(key);
    ASSERT_NE(setting, nullptr) << key;
    EXPECT_EQ(accepted(*setting, value), value) << key;
    if (!setting->textKey.empty()) {
      EXPECT_EQ(stored.at(std::string(setting->textKey)),
                PropertyListValue(wordsFor(*setting, stored)));
    }
  }
  if (const auto country = textOrNothing(valueInForce(stored, settings::kSelectedCountry))) {
    const auto prefix = valueInForce(stored, settings::kSelectedPrefix);
    const auto* const row = std::ranges::find(prefixes, *country, &CountryPrefix::first);
    EXPECT_EQ(prefix, row == prefixes.end()
                          ? valueInForce(stored, settings::kCustomPrefix)
                          : std::optional<PropertyListValue>(std::string(row->second)));
  }
}

TEST(ImportSettings, GivesWhatWasExported) {
  for (const auto& stored :
       {kFull, Stored{}, Stored{{"selectedCountry", "UK "}, {"selectedPrefix", "141"}},
        Stored{{"customText", ""}}, Stored{{"seen_tweaks", PropertyListArray{}}}}) {
    SettingsChange change(Stored{});
    const auto refusal = importSettings(exportSettings(stored).text, change);
    EXPECT_FALSE(refusal) << refusal->place << refusal->sentence;
    EXPECT_EQ(change.after(), stored);
  }
}

TEST(ImportSettings, KeepsWhatTheFileDoesNotSet) {
  SettingsChange change(Stored{{"customText", "kept"}, {"other", 1}});
  ASSERT_FALSE(importSettings(document(R"("dialerMode": 1)"), change));
  EXPECT_EQ(
      change.after(),
      (Stored{
          {"customText", "kept"}, {"other", 1}, {"dialerMode", 1}, {"dialerModeText", "Hold"}}));
}

TEST(ImportSettings, MakesTheWordsAnew) {
  SettingsChange change(Stored{});
  ASSERT_FALSE(importSettings(document(R"("dialerMode": 2, "dialerModeText": "Hold")"), change));
  EXPECT_EQ(change.after(), (Stored{{"dialerMode", 2}, {"dialerModeText", "Show always"}}));
}

TEST(ImportSettings, ReadsThePropertyListOfAPhone) {
  const auto xml = bytesFromPropertyList(kFull);
  ASSERT_TRUE(xml && xml->starts_with("<?xml"));
  const auto binary = BinaryPropertyListWriter().write(kFull);
  ASSERT_TRUE(binary && binary->starts_with("bplist"));
  for (const auto& bytes : {*xml, *binary}) {
    SettingsChange change(Stored{});
    EXPECT_FALSE(importSettings(bytes, change));
    EXPECT_EQ(change.after(), kFull);
  }
  EXPECT_EQ(refusalOf(xml->substr(0, xml->size() / 2)),
            "the file: This property list is damaged, cut, or holds no dictionary.");
  EXPECT_EQ(refusalOf(*bytesFromPropertyList(Stored{{"dialerMode", "x"}})),
            "the key dialerMode: dialerMode has to be 0 (Swipe), 1 (Hold) or 2 (Show always).");
}

TEST(ImportSettings, RefusesWithThePlace) {
  EXPECT_EQ(refusalOf(document("  \"dialermode\": 1")),
            "line 4, column 3: There is no setting \"dialermode\". Did you mean \"dialerMode\"?");
  EXPECT_EQ(refusalOf(document("\"customText\": \"\\\"\",\n    \"dialerMode\": \"hold\"")),
            "line 5, column 5: dialerMode has to be 0 (Swipe), 1 (Hold) or 2 (Show always).");
  EXPECT_EQ(refusalOf(document("\"seen_tweaks\": [1]")),
            "line 4, column 1: seen_tweaks has to be a list of texts.");
  EXPECT_EQ(refusalOf(document("\"dialerMode\": 1, \"dialerMode\": 1")),
            "line 4, column 18: \"dialerMode\" is there twice.");
  EXPECT_EQ(refusalOf(document("\"dialerModeText\": \"Hold\"")),
            "line 4, column 1: dialerModeText goes with dialerMode, which is missing.");
  EXPECT_EQ(refusalOf(document("\"selectedPrefix\": \"#31#\"")),
            "line 4, column 1: selectedPrefix goes with selectedCountry, which is missing.");
  EXPECT_EQ(
      refusalOf(document("\"selectedCountry\": \"Cnada\"")),
      "line 4, column 1: There is no country \"Cnada\" in the table. Did you mean \"Canada\"?");
  EXPECT_EQ(refusalOf(document("\"selectedCountry\": \"US\", \"selectedPrefix\": \"#31#\"")),
            "line 4, column 26: The prefix of \"US\" is \"*67\", not \"#31#\".");
  EXPECT_EQ(refusalOf(document("\"selectedCountry\": \"Custom (enter below)\",\n"
                               "\"selectedPrefix\": \"#31#\"")),
            "line 5, column 1: customPrefix, which it has to be, is missing.");
}

TEST(ImportSettings, RefusesWhatIsNoExport) {
  EXPECT_EQ(refusalOf(""), "line 1, column 1: This is not JSON, or it is cut.");
  EXPECT_EQ(refusalOf("{\n  \"format\" 1}"), "line 2, column 12: This is not JSON, or it is cut.");
  EXPECT_EQ(refusalOf("[]"), "line 1: The file has to be one object.");
  EXPECT_EQ(refusalOf("{}"), "the file: It has no \"format\": it is no export of QuietDial.");
  EXPECT_EQ(refusalOf(R"({"format": "other"})"),
            "line 1, column 2: The format has to be \"quietdial-settings\".");
  EXPECT_EQ(refusalOf(R"({"format": "quietdial-settings", "version": 2, "new": {}})"),
            "line 1, column 34: A newer QuietDial has written this: version 2 is not known here.");
  for (const std::string version : {"0", "-1", "1.0", "\"1\"", "null", "true", "[1]"}) {
    EXPECT_EQ(refusalOf(R"({"format": "quietdial-settings", "version": )" + version + "}"),
              "line 1, column 34: The version has to be a number from 1.")
        << version;
  }
  EXPECT_EQ(
      refusalOf(R"({"format": "quietdial-settings", "version": 1, "more": 1, "settings": {}})"),
      "line 1, column 48: \"more\" is not known.");
  EXPECT_EQ(refusalOf(R"({"format": "quietdial-settings", "version": 1, "settings": []})"),
            "line 1, column 48: The settings have to be an object.");
  EXPECT_THAT(refusalOf(std::string(1'000'000, '[')),
              testing::EndsWith("It is nested too deeply for settings."));
}

TEST(ImportSettings, EveryCutIsRefused) {
  const auto whole = exportSettings(kFull).text;
  // The last byte is the line's end.
  for (std::size_t length = 0; length + 1 < whole.size(); ++length) {
    EXPECT_NE(refusalOf(whole.substr(0, length)), "") << length;
  }
}

TEST(ImportSettings, EveryChangeOfOneByteIsRefusedOrUnderstood) {
  auto bytes = exportSettings(kFull).text;
  for (std::size_t place = 0; place < bytes.size(); ++place) {
    const char original = bytes[place];
    for (int byte = 0; byte < 256; ++byte) {
      bytes[place] = static_cast<char>(byte);
      SettingsChange change(Stored{});
      if (importSettings(bytes, change)) {
        EXPECT_TRUE(change.isEmpty()) << place << ' ' << byte;
      } else {
        expectConsistent(change.after());
      }
    }
    bytes[place] = original;
  }
}

}  // namespace
