#include "changes/exportSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

TEST(ExportSettings, HoldsTheKeysOfTheTableThatAreSetInItsOrder) {
  const auto exported = exportSettings({{"selectedCountry", "UK "},
                                        {"dialerMode", 1},
                                        {"customText", "\"ä\""},
                                        {"seen_tweaks", PropertyListArray{"a", "b"}},
                                        {"other", 7}});
  EXPECT_EQ(exported.text, R"({
  "format": "quietdial-settings",
  "version": 1,
  "settings": {
    "dialerMode": 1,
    "customText": "\"ä\"",
    "selectedCountry": "UK ",
    "seen_tweaks": [
      "a",
      "b"
    ]
  }
}
)");
  EXPECT_TRUE(exported.leftOut.empty());
}

TEST(ExportSettings, LeavesOutWhatASettingCannotBeAndSaysSo) {
  const auto exported = exportSettings({{"dialerMode", "one"}, {"systemwideStyle", true}});
  EXPECT_THAT(exported.text, testing::HasSubstr("\"systemwideStyle\": 1"));
  ASSERT_EQ(exported.leftOut.size(), 1U);
  EXPECT_EQ(exported.leftOut.front()->key, "dialerMode");
}

}  // namespace
