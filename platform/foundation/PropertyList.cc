#include "platform/foundation/PropertyList.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

using Limits64 = std::numeric_limits<std::int64_t>;

// 2^63 and 2^64 are exact as doubles; the largest integers of the types are not.
constexpr double kTwoTo63 = 9223372036854775808.0;
constexpr double kTwoTo64 = 18446744073709551616.0;

std::int64_t integerOfReal(double real) {
  if (std::isnan(real)) {
    return 0;
  }
  if (real >= kTwoTo63) {
    return Limits64::max();
  }
  if (real < -kTwoTo63) {
    return Limits64::min();
  }
  return static_cast<std::int64_t>(real);
}

std::int64_t leadingInteger(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\n\v\f\r";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const bool negative = text.starts_with('-');
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) {
      return 0;
    }
  }
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc::result_out_of_range) {
    return negative ? Limits64::min() : Limits64::max();
  }
  return error == std::errc{} ? number : 0;
}

// A number as one of three exact representations, so that two numbers compare without rounding.
struct ExactNumber {
  enum class Kind { kSigned, kUnsigned, kReal } kind;
  std::int64_t signedValue = 0;
  std::uint64_t unsignedValue = 0;
  double real = 0;
};

// Whole reals within the 64-bit ranges become integers.
ExactNumber exact(double real) {
  if (std::trunc(real) == real) {
    if (real >= -kTwoTo63 && real < kTwoTo63) {
      return {ExactNumber::Kind::kSigned, static_cast<std::int64_t>(real), 0, 0};
    }
    if (real >= kTwoTo63 && real < kTwoTo64) {
      return {ExactNumber::Kind::kUnsigned, 0, static_cast<std::uint64_t>(real), 0};
    }
  }
  return {ExactNumber::Kind::kReal, 0, 0, real};
}

std::optional<ExactNumber> exactNumber(const PropertyListValue& value) {
  if (const auto* boolean = value.get<bool>()) {
    return ExactNumber{ExactNumber::Kind::kSigned, *boolean ? 1 : 0, 0, 0};
  }
  if (const auto* number = value.get<std::int64_t>()) {
    return ExactNumber{ExactNumber::Kind::kSigned, *number, 0, 0};
  }
  if (const auto* number = value.get<std::uint64_t>()) {
    return ExactNumber{ExactNumber::Kind::kUnsigned, 0, *number, 0};
  }
  if (const auto* real = value.get<double>()) {
    return exact(*real);
  }
  return std::nullopt;
}

bool sameNumber(const ExactNumber& left, const ExactNumber& right) {
  if (left.kind != right.kind) {
    return false;
  }
  if (left.kind == ExactNumber::Kind::kReal && std::isnan(left.real) && std::isnan(right.real)) {
    return true;
  }
  return left.signedValue == right.signedValue && left.unsignedValue == right.unsignedValue &&
         left.real == right.real;
}

template <class Kind>
bool sameKindAndEqual(const PropertyListValue& left, const PropertyListValue& right) {
  const auto* one = left.get<Kind>();
  const auto* other = right.get<Kind>();
  return one && other && *one == *other;
}

}  // namespace

PropertyListValue::PropertyListValue(PropertyListArray value)
    : value_(std::make_shared<const PropertyListArray>(std::move(value))) {}

PropertyListValue::PropertyListValue(PropertyListDictionary value)
    : value_(std::make_shared<const PropertyListDictionary>(std::move(value))) {}

std::optional<std::int64_t> PropertyListValue::integerValue() const {
  if (const auto* boolean = get<bool>()) {
    return *boolean ? 1 : 0;
  }
  if (const auto* number = get<std::int64_t>()) {
    return *number;
  }
  if (get<std::uint64_t>()) {
    return Limits64::max();
  }
  if (const auto* real = get<double>()) {
    return integerOfReal(*real);
  }
  if (const auto* text = get<std::string>()) {
    return leadingInteger(*text);
  }
  return std::nullopt;
}

std::optional<std::int32_t> PropertyListValue::intValue() const {
  using Limits32 = std::numeric_limits<std::int32_t>;
  const auto number = integerValue();
  if (!number) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>(*number, Limits32::min(), Limits32::max()));
}

bool PropertyListValue::boolValue() const {
  return integerValue().value_or(0) != 0;
}

bool operator==(const PropertyListValue& left, const PropertyListValue& right) {
  const auto one = exactNumber(left);
  const auto other = exactNumber(right);
  if (one || other) {
    return one && other && sameNumber(*one, *other);
  }
  return sameKindAndEqual<std::string>(left, right) ||
         sameKindAndEqual<PropertyListData>(left, right) ||
         sameKindAndEqual<PropertyListDate>(left, right) ||
         sameKindAndEqual<PropertyListUID>(left, right) ||
         sameKindAndEqual<PropertyListArray>(left, right) ||
         sameKindAndEqual<PropertyListDictionary>(left, right);
}

std::int64_t integerOrZero(const std::optional<PropertyListValue>& value) {
  return value ? value->integerValue().value_or(0) : 0;
}

std::optional<std::string> textOrNothing(const std::optional<PropertyListValue>& value) {
  const auto* text = value ? value->get<std::string>() : nullptr;
  return text ? std::optional(*text) : std::nullopt;
}
