#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "platform/api.h"

using NSUInteger = std::size_t;

/// `length` indexes from `location`.
struct NSRange {
  NSUInteger location = 0;
  NSUInteger length = 0;
  bool operator==(const NSRange&) const = default;
};

/// A set of indexes, kept as ranges: what holds a whole animation costs one range. A value; copies
/// are independent. One thread at a time may change it.
class PLATFORM_API NSIndexSet {
 public:
  NSIndexSet() = default;
  static NSIndexSet indexSetWithIndexesInRange(NSRange range);

  NSUInteger count() const { return count_; }

  void addIndex(NSUInteger index) { addIndexesInRange({index, 1}); }
  void addIndexesInRange(NSRange range);
  void addIndexes(const NSIndexSet& other);
  void removeIndex(NSUInteger index) { removeIndexesInRange({index, 1}); }
  void removeIndexesInRange(NSRange range);
  void removeIndexes(const NSIndexSet& other);

  /// Calls `block` with the indexes that lie in the range, in ascending order.
  void enumerateIndexesInRange(NSRange range, const std::function<void(NSUInteger)>& block) const;

  /// All indexes in ascending order.
  std::vector<NSUInteger> indexes() const;

  bool operator==(const NSIndexSet&) const = default;

 private:
  // Ascending, none empty, none touching its neighbour.
  std::vector<NSRange> ranges_;
  NSUInteger count_ = 0;
};
