#include "prefix/prefixes.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::Pair;

std::string_view prefixOf(std::string_view country) {
  const auto* const found = std::ranges::find(prefixes, country, &CountryPrefix::first);
  return found == prefixes.end() ? "not there" : found->second;
}

TEST(Prefixes, Has34EntriesFromAlgeriaToTheCatchAll) {
  EXPECT_EQ(prefixes.size(), 34U);
  EXPECT_EQ(prefixes.front(), CountryPrefix("Algeria", "#31#"));
  EXPECT_EQ(prefixes.back(), CountryPrefix("Most other counties", "#31#"));
}

TEST(Prefixes, TheDefaultCountryCarriesTheDefaultPrefix) {
  EXPECT_EQ(prefixOf("Most other counties"), "#31#");
}

TEST(Prefixes, BlanksAtTheEndArePartOfTheValue) {
  EXPECT_EQ(prefixOf("UK "), "141");
  EXPECT_EQ(prefixOf("UK"), "not there");
  EXPECT_EQ(prefixOf("Australia"), "#31# ");
  EXPECT_EQ(prefixOf("Pakistan"), "*32# ");
}

TEST(Prefixes, IrelandAndTheRepublicOfIrelandAreTwoEntries) {
  EXPECT_EQ(prefixOf("Ireland"), "141");
  EXPECT_EQ(prefixOf("Republic of Ireland"), "#31#");
}

TEST(Prefixes, CountryNamesAreUnique) {
  std::set<std::string_view> names;
  for (const auto& entry : prefixes) {
    EXPECT_TRUE(names.insert(entry.first).second) << entry.first;
  }
}

TEST(Prefixes, EachPrefixOccursAsOftenAsItsAuthorsSet) {
  std::map<std::string_view, int> count;
  for (const auto& entry : prefixes) {
    ++count[entry.second];
  }
  EXPECT_THAT(count, ElementsAre(Pair("#31#", 22), Pair("#31# ", 1), Pair("*23#", 1),
                                 Pair("*31#", 1), Pair("*32# ", 1), Pair("*43", 1), Pair("*67", 4),
                                 Pair("141", 2), Pair("184", 1)));
}

TEST(Prefixes, TheOrderIsSetByHand) {
  const auto at = [](std::string_view country) {
    return std::ranges::find(prefixes, country, &CountryPrefix::first) - prefixes.begin();
  };
  EXPECT_EQ(at("South Korea"), at("Japan") + 1);
  EXPECT_EQ(at("Malaysia"), at("South Korea") + 1);
  EXPECT_EQ(at("US"), at("UK ") + 1);
  EXPECT_EQ(at("Republic of Ireland"), at("Puerto Rico") + 1);
}

}  // namespace
