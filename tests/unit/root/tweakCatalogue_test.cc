#include "root/tweakCatalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TweaksFromList, PiecesStandInTheAnswersOrder) {
  EXPECT_THAT(tweaksFromList("a|b|c"), ElementsAre("a", "b", "c"));
}

TEST(TweaksFromList, AnEmptyAnswerIsOneEmptyIdentifier) {
  EXPECT_THAT(tweaksFromList(""), ElementsAre(""));
}

TEST(TweaksFromList, ASeparatorAtTheEndIsFollowedByAnEmptyIdentifier) {
  EXPECT_THAT(tweaksFromList("a|"), ElementsAre("a", ""));
  EXPECT_THAT(tweaksFromList("|"), ElementsAre("", ""));
  EXPECT_THAT(tweaksFromList("a||b"), ElementsAre("a", "", "b"));
}

TEST(TweaksFromList, NothingIsTrimmedOrInterpreted) {
  EXPECT_THAT(tweaksFromList(" a \n|&b=%7C\r\n"), ElementsAre(" a \n", "&b=%7C\r\n"));
  EXPECT_THAT(tweaksFromList(std::string_view("a\0b|c", 5)),
              ElementsAre(std::string("a\0b", 3), "c"));
}

TEST(TweaksNotSeen, KeepsTheOrderOfWhatIsAvailable) {
  EXPECT_THAT(tweaksNotSeen({"c", "a", "b"}, PropertyListArray{"b"}), ElementsAre("c", "a"));
}

TEST(TweaksNotSeen, RemovesEveryOccurrenceAndKeepsDuplicatesThatAreNotSeen) {
  EXPECT_THAT(tweaksNotSeen({"a", "b", "a", "c", "b"}, PropertyListArray{"b", "b"}),
              ElementsAre("a", "a", "c"));
}

TEST(TweaksNotSeen, AnythingButAListCountsAsNothingSeen) {
  for (const auto& seen : std::vector<std::optional<PropertyListValue>>{
           std::nullopt, PropertyListValue("a"), PropertyListValue(1),
           PropertyListValue(PropertyListDictionary{{"a", "a"}})}) {
    EXPECT_THAT(tweaksNotSeen({"a", ""}, seen), ElementsAre("a", ""));
  }
}

TEST(TweaksNotSeen, ElementsOfOtherKindsMatchNothing) {
  const PropertyListArray seen{1, true, 1.5, PropertyListArray{"a"}, PropertyListData{}, "b"};
  EXPECT_THAT(tweaksNotSeen({"1", "a", "b", "true", ""}, seen), ElementsAre("1", "a", "true", ""));
}

TEST(TweaksNotSeen, TextsMatchByTheirBytes) {
  // The same letter as one character and as two.
  EXPECT_THAT(tweaksNotSeen({"\xC3\xA4", "a\xCC\x88", "A"}, PropertyListArray{"\xC3\xA4", "a"}),
              ElementsAre("a\xCC\x88", "A"));
}

TEST(TweaksNotSeen, TheEmptyIdentifierIsOneLikeAnyOther) {
  EXPECT_THAT(tweaksNotSeen({""}, PropertyListArray{""}), IsEmpty());
}

TEST(TweaksNotSeen, AHundredThousandIdentifiersOfWhichEverySecondIsSeen) {
  constexpr int kCount = 100'000;
  Tweaks available;
  PropertyListArray seen;
  for (int number = 0; number < kCount; ++number) {
    available.push_back("me.orlanvey.tweak" + std::to_string(number));
    if (number % 2 == 0) {
      seen.emplace_back(available.back());
    }
  }
  const auto unseen = tweaksNotSeen(available, seen);
  ASSERT_EQ(unseen.size(), kCount / 2);
  EXPECT_EQ(unseen.front(), "me.orlanvey.tweak1");
  EXPECT_EQ(unseen.back(), "me.orlanvey.tweak99999");
}

}  // namespace
