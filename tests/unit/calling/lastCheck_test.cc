#include "calling/lastCheck.h"

#include <array>

#include <gtest/gtest.h>

namespace {

const std::array<std::string, 2> kKnown{"#31#", "141"};

LastCheck check(std::string_view dial, std::string_view prefix = "#31#") {
  return {
      .dial = dial,
      .prefix = prefix,
      .knownPrefixes = kKnown,
      .isEmergency = [](std::string_view text) { return text == "112" || text == "110"; },
  };
}

LastCheck open(std::string_view dial) {
  auto result = check(dial);
  result.isAnonymous = false;
  return result;
}

LastCheck hiddenByTheLine(std::string_view dial) {
  auto result = check(dial);
  result.lineHides = true;
  return result;
}

TEST(LastCheck, AnAnonymousCallHasThePrefixOrTheLinesWish) {
  EXPECT_TRUE(passesLastCheck(check("#31#0171555")));
  EXPECT_FALSE(passesLastCheck(check("0171555")));
  EXPECT_FALSE(passesLastCheck(check("#31#")));
  EXPECT_FALSE(passesLastCheck(check("*67555", "#31#")));
  EXPECT_FALSE(passesLastCheck(check("0171555", "")));
  EXPECT_TRUE(passesLastCheck(hiddenByTheLine("0171555")));
}

TEST(LastCheck, OnlyDiallableCharactersPassWithOnePlus) {
  for (const auto* bad :
       {"", "0171;555", "0171,1", "0171 555", "0171\n", "0171a", "++49", "+49+1"}) {
    EXPECT_FALSE(passesLastCheck(open(bad))) << bad;
    EXPECT_FALSE(passesLastCheck(hiddenByTheLine(bad))) << bad;
  }
  EXPECT_TRUE(passesLastCheck(open("+4930")));
  EXPECT_TRUE(passesLastCheck(check("#31#+4930")));
  EXPECT_FALSE(passesLastCheck(check("#31#+49+30")));
}

TEST(LastCheck, AnEmergencyNumberGoesBareAndWithoutAWish) {
  EXPECT_TRUE(passesLastCheck(check("112")));
  EXPECT_TRUE(passesLastCheck(open("112")));
  EXPECT_FALSE(passesLastCheck(hiddenByTheLine("112")));
  EXPECT_FALSE(passesLastCheck(check("#31#112")));
  EXPECT_FALSE(passesLastCheck(check("*99112", "*99")));
  EXPECT_FALSE(passesLastCheck(open("141112")));
  EXPECT_FALSE(passesLastCheck(hiddenByTheLine("#31#112")));
}

TEST(LastCheck, NoPrefixOfDigitsMakesAnEmergencyNumber) {
  EXPECT_FALSE(passesLastCheck(check("110301234567", "11")));
  EXPECT_FALSE(passesLastCheck(check("112030123", "112")));
  EXPECT_TRUE(passesLastCheck(check("1410301234567", "141")));
  // Behind a code the network reads the digits from their own beginning.
  EXPECT_TRUE(passesLastCheck(check("#31#11012345")));
}

TEST(LastCheck, ThePrefixMakesNoLongerCodeWithTheNumber) {
  EXPECT_FALSE(passesLastCheck(check("#31#0171555", "#31")));
  EXPECT_TRUE(passesLastCheck(check("#3110171555", "#31")));
  EXPECT_FALSE(passesLastCheck(check("1415550134", "14")));
}

TEST(LastCheck, AnOpenCallCarriesNoWish) {
  EXPECT_TRUE(passesLastCheck(open("0171555")));
  auto wrong = hiddenByTheLine("0171555");
  wrong.isAnonymous = false;
  EXPECT_FALSE(passesLastCheck(wrong));
}

}  // namespace
