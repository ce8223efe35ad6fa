#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "linux/propertylist/BinaryPropertyListFormat.h"
#include "linux/propertylist/PropertyListBudget.h"
#include "platform/foundation/PropertyList.h"

/// Reads the binary form of a property list ("bplist00"): objects, a table of their offsets and a
/// trailer of 32 bytes that says where the table is.
///
/// An object that is referred to many times is read as many times. Cycles and references that
/// multiply therefore end at the bounds on depth and memory, before they cost more than those.
class BinaryPropertyListReader {
 public:
  static bool isBinary(std::string_view bytes) { return bytes.starts_with(bplist::kHeader); }

  /// The bytes must outlive the reader.
  explicit BinaryPropertyListReader(std::string_view bytes) : bytes_(bytes) {}

  /// The value; nothing when the bytes are not well-formed, hold an object that has no counterpart
  /// (null, a set, a URL) or pass one of the bounds. Of two equal keys the later one counts. Call
  /// once.
  std::optional<PropertyListValue> read();

 private:
  /// An object's marker byte, taken apart, and where what follows it starts.
  struct Object {
    unsigned kind = 0;
    unsigned low = 0;
    std::size_t position = 0;
  };

  bool readTrailer();
  std::optional<std::uint64_t> numberAt(std::size_t position, std::size_t size) const;
  std::optional<Object> objectAt(std::uint64_t reference) const;
  std::optional<std::size_t> readCount(Object& object, std::size_t unitSize) const;

  std::optional<PropertyListValue> readValue(std::uint64_t reference, int depth);
  std::optional<PropertyListValue> readInteger(const Object& object) const;
  std::optional<PropertyListValue> readReal(const Object& object) const;
  std::optional<PropertyListValue> readDate(const Object& object) const;
  std::optional<PropertyListValue> readUID(const Object& object) const;
  std::optional<PropertyListValue> readData(Object object);
  std::optional<std::string> readText(Object object);
  std::optional<PropertyListValue> readArray(Object object, int depth);
  std::optional<PropertyListValue> readDictionary(Object object, int depth);

  std::string_view bytes_;  // after the trailer is read: what comes before the offset table
  std::string_view offsets_;
  std::size_t offsetSize_ = 0;
  std::size_t referenceSize_ = 0;
  std::uint64_t objectCount_ = 0;
  std::uint64_t topObject_ = 0;
  PropertyListBudget budget_;
};
