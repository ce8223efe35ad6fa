#pragma once

#include <cstdint>
#include <memory>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"

/// A whole number as an object, for calls that pass objects. Equal to any of the same value.
class PLATFORM_API NSNumber : public Subclass<NSNumber, NSObject> {
 public:
  static const ClassOf<NSNumber> classObject;

  static std::shared_ptr<NSNumber> numberWithUnsignedInteger(std::uint64_t value);

  std::uint64_t unsignedIntegerValue() const { return value_; }
  bool isEqual(const NSObject* other) const override;

 private:
  std::uint64_t value_ = 0;
};
