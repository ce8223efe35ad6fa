#include "platform/foundation/PropertyList.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace {

using Value = PropertyListValue;
constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kTwoTo53 = std::int64_t{1} << 53;

TEST(IntegerValue, BooleanIsZeroOrOne) {
  EXPECT_EQ(Value(true).integerValue(), 1);
  EXPECT_EQ(Value(false).integerValue(), 0);
}

TEST(IntegerValue, RealIsCutTowardsZeroAndHeldAtTheLimits) {
  EXPECT_EQ(Value(2.9).integerValue(), 2);
  EXPECT_EQ(Value(-2.9).integerValue(), -2);
  EXPECT_EQ(Value(1e300).integerValue(), kMost);
  EXPECT_EQ(Value(-1e300).integerValue(), kLeast);
  EXPECT_EQ(Value(9223372036854775808.0).integerValue(), kMost);
  EXPECT_EQ(Value(-9223372036854775808.0).integerValue(), kLeast);
  EXPECT_EQ(Value(std::nan("")).integerValue(), 0);
}

TEST(IntegerValue, TextGivesItsLeadingIntegerOrZero) {
  EXPECT_EQ(Value("12 apples").integerValue(), 12);
  EXPECT_EQ(Value("  -7x").integerValue(), -7);
  EXPECT_EQ(Value("+3").integerValue(), 3);
  EXPECT_EQ(Value("+-3").integerValue(), 0);
  EXPECT_EQ(Value("apples").integerValue(), 0);
  EXPECT_EQ(Value("").integerValue(), 0);
  EXPECT_EQ(Value("99999999999999999999").integerValue(), kMost);
  EXPECT_EQ(Value("-99999999999999999999").integerValue(), kLeast);
}

TEST(IntegerValue, UnsignedAboveTheRangeIsHeldAtTheLimit) {
  EXPECT_EQ(Value(std::numeric_limits<std::uint64_t>::max()).integerValue(), kMost);
}

TEST(IntegerValue, ContainersDataAndDatesHaveNone) {
  EXPECT_EQ(Value(PropertyListArray{1}).integerValue(), std::nullopt);
  EXPECT_EQ(Value(PropertyListDictionary{}).integerValue(), std::nullopt);
  EXPECT_EQ(Value(PropertyListData{}).integerValue(), std::nullopt);
  EXPECT_EQ(Value(PropertyListDate{}).integerValue(), std::nullopt);
  EXPECT_EQ(Value(PropertyListUID{1}).integerValue(), std::nullopt);
  EXPECT_EQ(Value(PropertyListArray{1}).intValue(), std::nullopt);
}

TEST(IntegerValue, WhatHasNoneIsFalseAndCountsAsZero) {
  EXPECT_FALSE(Value(PropertyListArray{1}).boolValue());
  EXPECT_EQ(integerOrZero(Value(PropertyListArray{1})), 0);
  EXPECT_EQ(integerOrZero(std::nullopt), 0);
}

TEST(IntValue, IsHeldAtTheLimitsOf32Bits) {
  EXPECT_EQ(Value(std::int64_t{1} << 40).intValue(), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(Value(-(std::int64_t{1} << 40)).intValue(), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(Value(3).intValue(), 3);
}

TEST(Equality, NumbersCompareByExactValueWhateverTheirType) {
  EXPECT_EQ(Value(1), Value(1.0));
  EXPECT_EQ(Value(1), Value(true));
  EXPECT_EQ(Value(0.0), Value(false));
  EXPECT_EQ(Value(-0.0), Value(0));
  EXPECT_NE(Value(kTwoTo53 + 1), Value(static_cast<double>(kTwoTo53)));
  EXPECT_EQ(Value(kTwoTo53), Value(static_cast<double>(kTwoTo53)));
  EXPECT_NE(Value(1), Value(1.5));
  EXPECT_NE(Value(kMost), Value(9223372036854775808.0));
  EXPECT_EQ(Value(std::uint64_t{1} << 63), Value(9223372036854775808.0));
  EXPECT_NE(Value(std::uint64_t{1} << 63), Value(kLeast));
  EXPECT_EQ(Value(std::nan("")), Value(std::nan("")));
  EXPECT_NE(Value(1e30), Value(2e30));
  EXPECT_NE(Value(std::numeric_limits<std::uint64_t>::max()), Value(18446744073709551616.0));
}

TEST(Equality, NothingIsEqualAcrossKinds) {
  EXPECT_NE(Value("1"), Value(1));
  EXPECT_NE(Value(""), Value(0));
  EXPECT_NE(Value(PropertyListArray{}), Value(PropertyListDictionary{}));
  EXPECT_NE(Value(PropertyListUID{1}), Value(1));
}

TEST(Equality, TextsCompareByTheirCharactersBlanksIncluded) {
  EXPECT_EQ(Value("UK "), Value("UK "));
  EXPECT_NE(Value("UK "), Value("UK"));
  EXPECT_NE(Value("uk"), Value("UK"));
}

TEST(Equality, ContainersCompareElementByElement) {
  EXPECT_EQ(Value(PropertyListArray{1, "a"}), Value(PropertyListArray{1.0, "a"}));
  EXPECT_NE(Value(PropertyListArray{1, "a"}), Value(PropertyListArray{"a", 1}));
  EXPECT_EQ(Value(PropertyListDictionary{{"k", 1}}), Value(PropertyListDictionary{{"k", true}}));
  EXPECT_NE(Value(PropertyListDictionary{{"k", 1}}), Value(PropertyListDictionary{{"l", 1}}));
}

TEST(ValueKinds, AreKeptAsTheyWereGiven) {
  EXPECT_TRUE(Value(true).get<bool>());
  EXPECT_FALSE(Value(true).get<std::int64_t>());
  EXPECT_TRUE(Value(1.0).get<double>());
  EXPECT_TRUE(Value("text").get<std::string>());
  EXPECT_TRUE(Value(std::numeric_limits<std::uint64_t>::max()).get<std::uint64_t>());
  EXPECT_TRUE(Value(std::uint64_t{5}).get<std::int64_t>());
}

}  // namespace
