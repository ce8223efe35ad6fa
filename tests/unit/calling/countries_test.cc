#include "calling/countries.h"

#include <gtest/gtest.h>

#include "linux/PhoneNumbers.h"
#include "prefix/prefixes.h"

namespace {

TEST(Countries, EveryCountryOfTheTableHasARegionThatIsOne) {
  const PhoneNumbers plans;
  for (const auto& [name, prefix] : prefixes) {
    EXPECT_EQ(plans.isRegion(regionOfCountry(name)), name != "Most other counties") << name;
  }
}

TEST(Countries, NamesMatchCharacterByCharacter) {
  EXPECT_EQ(regionOfCountry("UK "), "GB");
  EXPECT_EQ(regionOfCountry("UK"), "");
  EXPECT_EQ(regionOfCountry("Ireland"), "IE");
  EXPECT_EQ(regionOfCountry("Republic of Ireland"), "IE");
  EXPECT_EQ(regionOfCountry("Custom (enter below)"), "");
  EXPECT_EQ(regionOfCountry(""), "");
}

}  // namespace
