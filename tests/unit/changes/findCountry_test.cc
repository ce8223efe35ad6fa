#include "changes/findCountry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

std::vector<std::string> namesFor(std::string_view typed) {
  std::vector<std::string> names;
  for (const auto* const row : findCountry(typed).rows) {
    names.emplace_back(row->first);
  }
  return names;
}

TEST(FindCountry, FindsEveryRowByItsOwnName) {
  for (const auto& row : prefixes) {
    EXPECT_THAT(namesFor(row.first), testing::ElementsAre(std::string(row.first)));
  }
}

TEST(FindCountry, MindsNeitherCaseNorBlanks) {
  EXPECT_THAT(namesFor("uk"), testing::ElementsAre("UK "));
  EXPECT_THAT(namesFor("southkorea"), testing::ElementsAre("South Korea"));
  EXPECT_THAT(namesFor(" south  KOREA "), testing::ElementsAre("South Korea"));
}

TEST(FindCountry, KnowsTheCodesOfRegions) {
  EXPECT_THAT(namesFor("GB"), testing::ElementsAre("UK "));
  EXPECT_THAT(namesFor("kr"), testing::ElementsAre("South Korea"));
  EXPECT_THAT(namesFor("IE"), testing::ElementsAre("Ireland", "Republic of Ireland"));
  EXPECT_THAT(namesFor("ZZ"), testing::IsEmpty());
  EXPECT_THAT(namesFor(""), testing::IsEmpty());
}

TEST(FindCountry, SuggestsWhatIsNear) {
  EXPECT_EQ(findCountry("Cnada").suggestion, "Canada");
  EXPECT_EQ(findCountry("Most other countries").suggestion, "Most other counties");
  EXPECT_EQ(findCountry("Atlantis").suggestion, "");
}

}  // namespace
