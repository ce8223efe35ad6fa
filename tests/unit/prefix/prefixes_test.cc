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

TEST(Prefixes, IsThisTableInThisOrder) {
  EXPECT_THAT(
      prefixes,
      ElementsAre(Pair("Algeria", "#31#"), Pair("Argentina", "#31#"), Pair("Australia", "#31# "),
                  Pair("Brazil", "#31#"), Pair("Canada", "*67"), Pair("Colombia", "#31#"),
                  Pair("Cyprus", "#31#"), Pair("Czech Republic", "#31#"),
                  Pair("Dominican Republic", "*67"), Pair("Finland", "#31#"),
                  Pair("France", "#31#"), Pair("Germany", "#31#"), Pair("Greece", "#31#"),
                  Pair("Iceland", "#31#"), Pair("India", "*31#"), Pair("Ireland", "141"),
                  Pair("Israel", "*43"), Pair("Italy", "#31#"), Pair("Japan", "184"),
                  Pair("South Korea", "*23#"), Pair("Malaysia", "*67"), Pair("Mexico", "#31#"),
                  Pair("Netherlands", "#31#"), Pair("Pakistan", "*32# "), Pair("Portugal", "#31#"),
                  Pair("Puerto Rico", "#31#"), Pair("Republic of Ireland", "#31#"),
                  Pair("Romania", "#31#"), Pair("Spain", "#31#"), Pair("Sweden", "#31#"),
                  Pair("Taiwan", "#31#"), Pair("UK ", "141"), Pair("US", "*67"),
                  Pair("Most other counties", "#31#")));
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

}  // namespace
