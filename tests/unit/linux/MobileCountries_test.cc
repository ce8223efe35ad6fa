#include "linux/MobileCountries.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace {

class MobileCountriesTest : public testing::Test {
 protected:
  MobileCountries countriesOf(std::string_view table) {
    writeBytes(folder_ / "table.xml", table);
    return MobileCountries(folder_ / "table.xml");
  }

 private:
  TemporaryFolder folder_;
};

TEST_F(MobileCountriesTest, ANetworkOfTheTableIsInItsCountry) {
  const auto countries = countriesOf(
      "<country code=\"us\"><provider><gsm><network-id mcc=\"310\" mnc=\"26\"/></gsm></provider>"
      "</country><country code=\"gu\"><network-id mcc=\"310\" mnc=\"140\"/></country>");
  EXPECT_EQ(countries.regionOf("31026"), "US");
  EXPECT_EQ(countries.regionOf("310140"), "GU");
}

TEST_F(MobileCountriesTest, OneThatIsNotInTheTableIsWhereMostOfItsCountrysNumberAre) {
  const auto countries = countriesOf(
      "<country code=\"gu\"><network-id mcc=\"310\" mnc=\"140\"/></country>"
      "<country code=\"us\"><network-id mcc=\"310\" mnc=\"26\"/><network-id mcc=\"310\" "
      "mnc=\"38\"/></country>");
  EXPECT_EQ(countries.regionOf("31099"), "US");
  EXPECT_EQ(countries.regionOf("310"), "US");
  EXPECT_EQ(countries.regionOf("311"), "");
}

TEST_F(MobileCountriesTest, CommentsAndWhatIsNoNumberAreNothing) {
  const auto countries = countriesOf(
      "<country code=\"de\"><!-- <network-id mcc=\"262\" mnc=\"01\"/> --><network-id mcc=\"26x\" "
      "mnc=\"01\"/><network-id mcc=\"263\"/><network-id mcc=\"264\" mnc=\"1\"/></country>"
      "<country code=\"deu\"><network-id mcc=\"265\" mnc=\"01\"/></country><country");
  for (const auto* network : {"26201", "262", "26x01", "263", "264", "26501"}) {
    EXPECT_EQ(countries.regionOf(network), "") << network;
  }
}

TEST_F(MobileCountriesTest, WhatNoNetworkSendsIsNowhere) {
  const auto countries = countriesOf("<country code=\"de\"><network-id mcc=\"262\" mnc=\"01\"/>");
  for (const auto* network : {"", "2", "26", "2620101x", "abc", "2620100"}) {
    EXPECT_EQ(countries.regionOf(network), "") << network;
  }
  EXPECT_EQ(countries.regionOf("26202"), "DE");
}

TEST(MobileCountries, AMissingTableKnowsNothing) {
  EXPECT_EQ(MobileCountries("/nowhere").regionOf("26201"), "");
}

TEST(MobileCountries, TheInstalledTableKnowsTheCountriesOfTheSettings) {
  const MobileCountries countries;
  EXPECT_EQ(countries.regionOf("26201"), "DE");
  EXPECT_EQ(countries.regionOf("23415"), "GB");
  EXPECT_EQ(countries.regionOf("310260"), "US");
  EXPECT_EQ(countries.regionOf("44010"), "JP");
}

}  // namespace
