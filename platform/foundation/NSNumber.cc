#include "platform/foundation/NSNumber.h"

constexpr ClassOf<NSNumber> NSNumber::classObject{"NSNumber"};

std::shared_ptr<NSNumber> NSNumber::numberWithUnsignedInteger(std::uint64_t value) {
  auto number = allocInit<NSNumber>();
  number->value_ = value;
  return number;
}

bool NSNumber::isEqual(const NSObject* other) const {
  const auto* number = dynamic_cast<const NSNumber*>(other);
  return number && number->value_ == value_;
}
