#include "platform/foundation/NSIndexSet.h"

#include <algorithm>
#include <limits>

namespace {

constexpr NSUInteger kLargest = std::numeric_limits<NSUInteger>::max();

// One past the last index; held at the largest number.
NSUInteger endOf(NSRange range) {
  return range.length > kLargest - range.location ? kLargest : range.location + range.length;
}

NSUInteger countOf(const std::vector<NSRange>& ranges) {
  NSUInteger count = 0;
  for (const auto& range : ranges) {
    count += range.length;
  }
  return count;
}

}  // namespace

NSIndexSet NSIndexSet::indexSetWithIndexesInRange(NSRange range) {
  NSIndexSet set;
  set.addIndexesInRange(range);
  return set;
}

void NSIndexSet::addIndexesInRange(NSRange range) {
  if (range.length == 0) {
    return;
  }
  NSUInteger first = range.location;
  NSUInteger end = endOf(range);
  const auto touched = std::ranges::lower_bound(ranges_, first, {}, endOf);
  auto untouched = touched;
  for (; untouched != ranges_.end() && untouched->location <= end; ++untouched) {
    first = std::min(first, untouched->location);
    end = std::max(end, endOf(*untouched));
  }
  const auto place = ranges_.erase(touched, untouched);
  ranges_.insert(place, {first, end - first});
  count_ = countOf(ranges_);
}

void NSIndexSet::addIndexes(const NSIndexSet& other) {
  for (const auto& range : other.ranges_) {
    addIndexesInRange(range);
  }
}

void NSIndexSet::removeIndexesInRange(NSRange range) {
  const NSUInteger first = range.location;
  const NSUInteger end = endOf(range);
  std::vector<NSRange> left;
  left.reserve(ranges_.size() + 1);
  for (const auto& kept : ranges_) {
    const NSUInteger keptEnd = endOf(kept);
    if (kept.location < first) {
      left.push_back({kept.location, std::min(keptEnd, first) - kept.location});
    }
    if (keptEnd > end) {
      const NSUInteger from = std::max(kept.location, end);
      // A range on both sides of an empty one stays whole.
      if (!left.empty() && endOf(left.back()) == from) {
        left.back().length = keptEnd - left.back().location;
      } else {
        left.push_back({from, keptEnd - from});
      }
    }
  }
  ranges_ = std::move(left);
  count_ = countOf(ranges_);
}

void NSIndexSet::removeIndexes(const NSIndexSet& other) {
  for (const auto& range : other.ranges_) {
    removeIndexesInRange(range);
  }
}

void NSIndexSet::enumerateIndexesInRange(NSRange range,
                                         const std::function<void(NSUInteger)>& block) const {
  const NSUInteger end = endOf(range);
  for (const auto& kept : ranges_) {
    const NSUInteger last = std::min(endOf(kept), end);
    for (NSUInteger index = std::max(kept.location, range.location); index < last; ++index) {
      block(index);
    }
  }
}

std::vector<NSUInteger> NSIndexSet::indexes() const {
  std::vector<NSUInteger> all;
  all.reserve(count_);
  enumerateIndexesInRange({0, kLargest}, [&all](NSUInteger index) { all.push_back(index); });
  return all;
}
