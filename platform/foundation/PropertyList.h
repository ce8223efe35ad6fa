#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "platform/api.h"

class PropertyListValue;

using PropertyListArray = std::vector<PropertyListValue>;
using PropertyListDictionary = std::map<std::string, PropertyListValue, std::less<>>;
using PropertyListData = std::vector<std::byte>;

/// A moment, in seconds since the first instant of 2001 (UTC): the unit in which files store it,
/// kept so that a date comes back to the last bit.
struct PropertyListDate {
  double secondsSinceReferenceDate = 0;
  bool operator==(const PropertyListDate&) const = default;
};

/// A reference number as found in archived objects; carried through, never interpreted.
struct PropertyListUID {
  std::uint64_t value = 0;
  bool operator==(const PropertyListUID&) const = default;
};

/// One immutable property-list value. Copies are cheap: containers are shared, between threads too.
///
/// "A value or nothing" is std::optional<PropertyListValue>; the class itself has no empty state.
class PLATFORM_API PropertyListValue {
 public:
  PropertyListValue(bool value) : value_(value) {}    // NOLINT(google-explicit-constructor)
  PropertyListValue(double value) : value_(value) {}  // NOLINT(google-explicit-constructor)
  PropertyListValue(std::string value)
      : value_(std::move(value)) {}  // NOLINT(google-explicit-constructor)
  PropertyListValue(const char* value)
      : value_(std::string(value)) {}  // NOLINT(google-explicit-constructor)
  PropertyListValue(PropertyListData value)
      : value_(std::move(value)) {}  // NOLINT(google-explicit-constructor)
  PropertyListValue(PropertyListDate value)
      : value_(value) {}  // NOLINT(google-explicit-constructor)
  PropertyListValue(PropertyListUID value)
      : value_(value) {}                            // NOLINT(google-explicit-constructor)
  PropertyListValue(PropertyListArray value);       // NOLINT(google-explicit-constructor)
  PropertyListValue(PropertyListDictionary value);  // NOLINT(google-explicit-constructor)

  /// Any other integer type. Values above the range of int64_t keep their own representation.
  template <class Integer>
  requires(std::is_integral_v<Integer> && !std::is_same_v<Integer, bool>)
      PropertyListValue(Integer value)
      : value_(stored(value)) {}  // NOLINT(google-explicit-constructor)

  /// The value when it is of exactly that kind, else null. Integers are int64_t, or uint64_t when
  /// they lie above its range. The pointer lives as long as this value.
  template <class Kind>
  const Kind* get() const {
    if constexpr (std::is_same_v<Kind, PropertyListArray> ||
                  std::is_same_v<Kind, PropertyListDictionary>) {
      const auto* shared = std::get_if<std::shared_ptr<const Kind>>(&value_);
      return shared ? shared->get() : nullptr;
    } else {
      return std::get_if<Kind>(&value_);
    }
  }

  /// The integer that code asking for a number sees: a boolean is 0 or 1, a real is cut towards
  /// zero, a text gives its leading integer or 0, and what is too large is held at the limits of
  /// the type (not-a-number is 0). Lists, dictionaries, data, dates and reference numbers have
  /// none.
  std::optional<std::int64_t> integerValue() const;

  /// integerValue held at the limits of 32 bits.
  std::optional<std::int32_t> intValue() const;

  /// True where integerValue is there and not 0.
  bool boolValue() const;

  /// Value equality: numbers and booleans by their exact value whatever their type, texts by their
  /// characters, containers element by element, nothing across other kinds. Not-a-number equals
  /// itself.
  PLATFORM_API friend bool operator==(const PropertyListValue& left,
                                      const PropertyListValue& right);

 private:
  using Storage =
      std::variant<bool, std::int64_t, std::uint64_t, double, std::string, PropertyListData,
                   PropertyListDate, PropertyListUID, std::shared_ptr<const PropertyListArray>,
                   std::shared_ptr<const PropertyListDictionary>>;

  template <class Integer>
  static Storage stored(Integer value) {
    if (std::in_range<std::int64_t>(value)) {
      return static_cast<std::int64_t>(value);
    }
    return static_cast<std::uint64_t>(value);
  }

  Storage value_;
};

/// integerValue of a value that may be absent; absent or without one counts as 0.
PLATFORM_API std::int64_t integerOrZero(const std::optional<PropertyListValue>& value);

/// The value when it is there and is a text, else nothing.
PLATFORM_API std::optional<std::string> textOrNothing(
    const std::optional<PropertyListValue>& value);
