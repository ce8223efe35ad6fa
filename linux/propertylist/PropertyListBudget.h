#pragma once

#include <cstddef>

#include "platform/foundation/PropertyList.h"

/// The largest property-list file that is read or written, in bytes.
inline constexpr std::size_t kPropertyListFileBound = std::size_t{16} << 20;

/// How deep containers may nest; the outermost value is at depth 1. Readers and writers recurse, so
/// this bounds their stack.
inline constexpr int kPropertyListDepthBound = 512;

/// What the values of one property list may take in memory. A small file can stand for a huge tree
/// (shared references that double at each level), so every value is paid for before it is made.
class PropertyListBudget {
 public:
  /// Pays for one value, without the text or data in it. False when the budget does not cover it.
  bool spendValue() { return spend(kValueCost); }

  /// Pays for text or data. False when the budget does not cover it.
  bool spend(std::size_t bytes) {
    if (bytes > left_) {
      return false;
    }
    left_ -= bytes;
    return true;
  }

  /// True when the value lies within the depth bound and the budget covers it: such a value can be
  /// read back once it is written.
  bool covers(const PropertyListValue& value, int depth = 1);

 private:
  /// At least a dictionary entry with its node and a short key.
  static constexpr std::size_t kValueCost = 128;

  std::size_t left_ = std::size_t{32} << 20;
};
