#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/PropertyList.h"

/// Writes the XML form: UTF-8, one tab a level.
class XMLPropertyListWriter {
 public:
  /// The document; nothing when it would pass the file bound or when XML cannot carry the value to
  /// the last bit: a text with a carriage return or another character that XML does not keep, a
  /// date between seconds, a reference number. The value must lie within the depth bound.
  static std::optional<std::string> write(const PropertyListValue& value);

 private:
  bool appendValue(const PropertyListValue& value, std::size_t level);
  bool appendScalar(const PropertyListValue& value);
  bool appendArray(const PropertyListArray& array, std::size_t level);
  bool appendDictionary(const PropertyListDictionary& dictionary, std::size_t level);
  bool appendText(std::string_view element, std::string_view text);
  void appendElement(std::string_view element, std::string_view content);

  std::string document_;
};
