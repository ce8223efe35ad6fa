#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "linux/propertylist/PropertyListBudget.h"
#include "platform/foundation/PropertyList.h"

/// Reads the XML form of a property list in one pass, without a document tree.
///
/// The document must be well-formed and whole: UTF-8 or, with a byte-order mark, UTF-16; one value,
/// bare or inside <plist>; nothing but comments after it. Entities that a document type declares
/// are not expanded: a document that uses one is refused. Of two equal keys the later one counts.
class XMLPropertyListReader {
 public:
  /// The bytes must outlive the reader.
  explicit XMLPropertyListReader(std::string_view bytes);

  /// The value; nothing when the bytes are no such document or pass one of the bounds. Call once.
  std::optional<PropertyListValue> read();

 private:
  struct Tag {
    std::string_view name;
    enum class Kind { kOpen, kClose, kEmpty } kind;
  };

  bool decodeDocument();
  bool skipDeclarations();
  bool skipDocumentType();
  bool skipPast(std::string_view end);
  bool skipMiscellany();
  bool hasOnlyMiscellanyLeft();
  std::optional<Tag> nextTag();
  bool skipAttributes();
  bool consume(std::string_view token);
  bool consumeClosingTag(std::string_view name);

  std::optional<PropertyListValue> readDocument();
  std::optional<PropertyListValue> readValue(const Tag& tag, int depth);
  std::optional<PropertyListValue> readScalar(const Tag& tag);
  std::optional<PropertyListValue> readArray(const Tag& tag, int depth);
  std::optional<PropertyListValue> readDictionary(const Tag& tag, int depth);
  std::optional<std::string> readText(const Tag& tag);
  bool appendReference(std::string& text);

  std::string_view rest_;
  std::string converted_;  // holds the document when it was not UTF-8
  PropertyListBudget budget_;
};
