#include "platform/foundation/NSIndexSet.h"

#include <limits>
#include <random>
#include <set>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(NSIndexSet, IsEmptyAtFirst) {
  EXPECT_EQ(NSIndexSet().count(), 0);
  EXPECT_THAT(NSIndexSet().indexes(), IsEmpty());
}

TEST(NSIndexSet, SetsWithTheSameIndexesAreEqualHoweverTheyCameAbout) {
  NSIndexSet set;
  for (const NSUInteger index : {4, 2, 3, 2, 1}) {
    set.addIndex(index);
  }
  EXPECT_EQ(set, NSIndexSet::indexSetWithIndexesInRange({1, 4}));
  set.removeIndex(2);
  EXPECT_THAT(set.indexes(), ElementsAre(1, 3, 4));
}

TEST(NSIndexSet, GivesTheIndexesOfARangeInAscendingOrder) {
  NSIndexSet set;
  set.addIndexesInRange({8, 3});
  set.addIndexesInRange({0, 3});
  std::vector<NSUInteger> found;
  set.enumerateIndexesInRange({2, 7}, [&found](NSUInteger index) { found.push_back(index); });
  EXPECT_THAT(found, ElementsAre(2, 8));
}

TEST(NSIndexSet, RangesThatReachPastTheLargestNumberEndThere) {
  constexpr NSUInteger kLargest = std::numeric_limits<NSUInteger>::max();
  auto set = NSIndexSet::indexSetWithIndexesInRange({kLargest - 2, 100});
  EXPECT_EQ(set.count(), 2);
  set.removeIndexesInRange({kLargest - 1, kLargest});
  EXPECT_THAT(set.indexes(), ElementsAre(kLargest - 2));
}

TEST(NSIndexSet, BehavesAsASetUnderAnyChanges) {
  std::mt19937 random(6);
  for (int round = 0; round < 50; ++round) {
    NSIndexSet set;
    std::set<NSUInteger> expected;
    for (int change = 0; change < 60; ++change) {
      const NSRange range{random() % 40, random() % 8};
      NSIndexSet other;
      other.addIndexesInRange(range);
      other.addIndex(random() % 40);
      const bool adds = random() % 2 == 0;
      if (adds) {
        set.addIndexes(other);
      } else {
        set.removeIndexes(other);
      }
      for (const NSUInteger index : other.indexes()) {
        if (adds) {
          expected.insert(index);
        } else {
          expected.erase(index);
        }
      }
      ASSERT_EQ(set.indexes(), std::vector<NSUInteger>(expected.begin(), expected.end()));
      ASSERT_EQ(set.count(), expected.size());
      NSIndexSet again;
      for (const NSUInteger index : expected) {
        again.addIndex(index);
      }
      ASSERT_EQ(set, again);
    }
  }
}

}  // namespace
