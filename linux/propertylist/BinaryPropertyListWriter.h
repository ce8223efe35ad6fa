#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/PropertyList.h"

/// Writes the binary form ("bplist00"). Equal texts are one object.
class BinaryPropertyListWriter {
 public:
  /// The file's bytes; nothing when they would pass the file bound or when a text is not
  /// well-formed UTF-8. The value must lie within the depth bound.
  static std::optional<std::string> write(const PropertyListValue& value);

 private:
  /// An object in the making: its bytes, after which the references follow.
  struct Object {
    std::string bytes;
    std::vector<std::size_t> references;
  };

  std::optional<std::size_t> add(const PropertyListValue& value);
  std::optional<std::size_t> addText(const std::string& text);
  std::optional<std::size_t> addArray(const PropertyListArray& array);
  std::optional<std::size_t> addDictionary(const PropertyListDictionary& dictionary);
  std::size_t addObject(std::string bytes);
  std::string assemble() const;

  std::vector<Object> objects_;
  std::map<std::string, std::size_t, std::less<>> texts_;
  std::size_t size_ = 0;
};
