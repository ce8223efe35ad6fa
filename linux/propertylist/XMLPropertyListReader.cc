#include "linux/propertylist/XMLPropertyListReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

#include "linux/propertylist/Base64.h"
#include "linux/propertylist/PropertyListDateText.h"
#include "linux/propertylist/Unicode.h"
#include "platform/foundation/asciiText.h"

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool isNameCharacter(char character) {
  return isAlphanumeric(character) || character == '_' || character == '-' || character == '.' ||
         character == ':';
}

template <class Number, class... Format>
std::optional<Number> wholeNumber(std::string_view text, Format... format) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, format...);
  return error == std::errc{} && stop == end ? std::optional(number) : std::nullopt;
}

std::optional<PropertyListValue> integerFromText(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) {
    text.remove_prefix(1);
  }
  int base = 10;
  if (text.starts_with("0x") || text.starts_with("0X")) {
    base = 16;
    text.remove_prefix(2);
  }
  const auto magnitude = wholeNumber<std::uint64_t>(text, base);
  if (!magnitude) {
    return std::nullopt;
  }
  if (!negative) {
    return PropertyListValue(*magnitude);
  }
  constexpr std::uint64_t kTwoTo63 = std::uint64_t{1} << 63U;
  if (*magnitude > kTwoTo63) {
    return std::nullopt;
  }
  return PropertyListValue(static_cast<std::int64_t>(std::uint64_t{0} - *magnitude));
}

// Never by the C library: its numbers follow the locale, and a comma locale reads 0.5 as 0.
std::optional<PropertyListValue> realFromText(std::string_view text) {
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) {
      return std::nullopt;
    }
  }
  const auto real = wholeNumber<double>(text);
  return real ? std::optional<PropertyListValue>(*real) : std::nullopt;
}

bool isReadableEncoding(std::string_view declaration) {
  const auto name = declaration.find("encoding");
  if (name == std::string_view::npos) {
    return true;
  }
  const auto open = declaration.find_first_of("\"'", name);
  if (open == std::string_view::npos) {
    return false;
  }
  const auto close = declaration.find(declaration[open], open + 1);
  if (close == std::string_view::npos) {
    return false;
  }
  const auto encoding = inCapitals(declaration.substr(open + 1, close - open - 1));
  return encoding == "UTF-8" || encoding == "UTF-16" || encoding == "US-ASCII";
}

// A document's line ends are read as line feeds, whichever way they are written.
void appendCharacters(std::string& text, std::string_view characters) {
  while (!characters.empty()) {
    const auto carriageReturn = std::min(characters.find('\r'), characters.size());
    text.append(characters.substr(0, carriageReturn));
    characters.remove_prefix(carriageReturn);
    if (!characters.empty()) {
      text.push_back('\n');
      characters.remove_prefix(characters.starts_with("\r\n") ? 2 : 1);
    }
  }
}

}  // namespace

XMLPropertyListReader::XMLPropertyListReader(std::string_view bytes) : rest_(bytes) {}

std::optional<PropertyListValue> XMLPropertyListReader::read() {
  if (!decodeDocument() || !isXMLText(rest_) || !skipDeclarations()) {
    return std::nullopt;
  }
  auto value = readDocument();
  return value && hasOnlyMiscellanyLeft() ? std::move(value) : std::nullopt;
}

bool XMLPropertyListReader::decodeDocument() {
  if (consume("\xEF\xBB\xBF")) {
    return true;
  }
  const bool littleEndian = rest_.starts_with("\xFF\xFE");
  if (littleEndian || rest_.starts_with("\xFE\xFF")) {
    if (rest_.size() % 2 != 0) {
      return false;
    }
    converted_ = utf8FromUTF16(rest_.substr(2), littleEndian);
    rest_ = converted_;
  }
  return true;
}

bool XMLPropertyListReader::skipDeclarations() {
  if (rest_.starts_with("<?xml ")) {
    const auto end = rest_.find("?>");
    if (end == std::string_view::npos || !isReadableEncoding(rest_.substr(0, end))) {
      return false;
    }
  }
  return skipMiscellany() && skipDocumentType() && skipMiscellany();
}

bool XMLPropertyListReader::skipDocumentType() {
  if (!consume("<!DOCTYPE")) {
    return true;
  }
  char quote = 0;
  int brackets = 0;
  for (std::size_t position = 0; position < rest_.size(); ++position) {
    const char character = rest_[position];
    if (quote != 0) {
      quote = character == quote ? char{0} : quote;
    } else if (character == '"' || character == '\'') {
      quote = character;
    } else if (character == '[') {
      ++brackets;
    } else if (character == ']') {
      --brackets;
    } else if (character == '>' && brackets == 0) {
      rest_.remove_prefix(position + 1);
      return true;
    }
  }
  return false;
}

bool XMLPropertyListReader::skipPast(std::string_view end) {
  const auto position = rest_.find(end);
  if (position == std::string_view::npos) {
    return false;
  }
  rest_.remove_prefix(position + end.size());
  return true;
}

bool XMLPropertyListReader::skipMiscellany() {
  while (true) {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
    if (consume("<!--")) {
      if (!skipPast("-->")) {
        return false;
      }
    } else if (consume("<?")) {
      if (!skipPast("?>")) {
        return false;
      }
    } else {
      return true;
    }
  }
}

bool XMLPropertyListReader::hasOnlyMiscellanyLeft() {
  return skipMiscellany() && rest_.empty();
}

std::optional<XMLPropertyListReader::Tag> XMLPropertyListReader::nextTag() {
  if (!skipMiscellany() || !consume("<")) {
    return std::nullopt;
  }
  Tag tag{{}, consume("/") ? Tag::Kind::kClose : Tag::Kind::kOpen};
  const auto* const end = std::ranges::find_if_not(rest_, isNameCharacter);
  const auto length = static_cast<std::size_t>(end - rest_.begin());
  tag.name = rest_.substr(0, length);
  rest_.remove_prefix(length);
  if (tag.name.empty() || !skipAttributes()) {
    return std::nullopt;
  }
  if (tag.kind == Tag::Kind::kOpen && consume("/")) {
    tag.kind = Tag::Kind::kEmpty;
  }
  return consume(">") ? std::optional(tag) : std::nullopt;
}

bool XMLPropertyListReader::skipAttributes() {
  while (!rest_.empty() && rest_.front() != '>' && rest_.front() != '/') {
    const char character = rest_.front();
    rest_.remove_prefix(1);
    if (character == '<') {
      return false;
    }
    if ((character == '"' || character == '\'') && !skipPast({&character, 1})) {
      return false;
    }
  }
  return true;
}

bool XMLPropertyListReader::consume(std::string_view token) {
  if (!rest_.starts_with(token)) {
    return false;
  }
  rest_.remove_prefix(token.size());
  return true;
}

bool XMLPropertyListReader::consumeClosingTag(std::string_view name) {
  const auto tag = nextTag();
  return tag && tag->kind == Tag::Kind::kClose && tag->name == name;
}

std::optional<PropertyListValue> XMLPropertyListReader::readDocument() {
  auto tag = nextTag();
  if (!tag || tag->name != "plist") {
    return tag ? readValue(*tag, 1) : std::nullopt;
  }
  if (tag->kind != Tag::Kind::kOpen || !(tag = nextTag())) {
    return std::nullopt;
  }
  auto value = readValue(*tag, 1);
  return value && consumeClosingTag("plist") ? std::move(value) : std::nullopt;
}

std::optional<PropertyListValue> XMLPropertyListReader::readValue(const Tag& tag, int depth) {
  if (tag.kind == Tag::Kind::kClose || depth > kPropertyListDepthBound || !budget_.spendValue()) {
    return std::nullopt;
  }
  if (tag.name == "dict") {
    return readDictionary(tag, depth);
  }
  if (tag.name == "array") {
    return readArray(tag, depth);
  }
  return readScalar(tag);
}

std::optional<PropertyListValue> XMLPropertyListReader::readScalar(const Tag& tag) {
  auto text = readText(tag);
  if (!text) {
    return std::nullopt;
  }
  if (tag.name == "string") {
    return PropertyListValue(std::move(*text));
  }
  if (tag.name == "integer") {
    return integerFromText(trimmed(*text));
  }
  if (tag.name == "real") {
    return realFromText(trimmed(*text));
  }
  if (tag.name == "true" || tag.name == "false") {
    return trimmed(*text).empty() ? std::optional<PropertyListValue>(tag.name == "true")
                                  : std::nullopt;
  }
  if (tag.name == "date") {
    const auto date = dateFromText(trimmed(*text));
    return date ? std::optional<PropertyListValue>(*date) : std::nullopt;
  }
  if (tag.name == "data") {
    auto data = dataFromBase64(*text);
    return data ? std::optional<PropertyListValue>(std::move(*data)) : std::nullopt;
  }
  return std::nullopt;
}

std::optional<PropertyListValue> XMLPropertyListReader::readArray(const Tag& tag, int depth) {
  PropertyListArray array;
  if (tag.kind == Tag::Kind::kEmpty) {
    return PropertyListValue(std::move(array));
  }
  while (const auto next = nextTag()) {
    if (next->kind == Tag::Kind::kClose) {
      return next->name == "array" ? std::optional<PropertyListValue>(std::move(array))
                                   : std::nullopt;
    }
    auto element = readValue(*next, depth + 1);
    if (!element) {
      return std::nullopt;
    }
    array.push_back(std::move(*element));
  }
  return std::nullopt;
}

std::optional<PropertyListValue> XMLPropertyListReader::readDictionary(const Tag& tag, int depth) {
  PropertyListDictionary dictionary;
  if (tag.kind == Tag::Kind::kEmpty) {
    return PropertyListValue(std::move(dictionary));
  }
  while (const auto next = nextTag()) {
    if (next->kind == Tag::Kind::kClose) {
      return next->name == "dict" ? std::optional<PropertyListValue>(std::move(dictionary))
                                  : std::nullopt;
    }
    auto key = next->name == "key" ? readText(*next) : std::nullopt;
    const auto valueTag = key ? nextTag() : std::nullopt;
    auto value = valueTag ? readValue(*valueTag, depth + 1) : std::nullopt;
    if (!value) {
      return std::nullopt;
    }
    dictionary.insert_or_assign(std::move(*key), std::move(*value));
  }
  return std::nullopt;
}

std::optional<std::string> XMLPropertyListReader::readText(const Tag& tag) {
  std::string text;
  if (tag.kind == Tag::Kind::kEmpty) {
    return text;
  }
  while (true) {
    const auto length = rest_.find_first_of("<&");
    if (length == std::string_view::npos || !budget_.spend(length)) {
      return std::nullopt;
    }
    appendCharacters(text, rest_.substr(0, length));
    rest_.remove_prefix(length);
    if (consume("<![CDATA[")) {
      const auto size = rest_.find("]]>");
      if (size == std::string_view::npos || !budget_.spend(size)) {
        return std::nullopt;
      }
      appendCharacters(text, rest_.substr(0, size));
      rest_.remove_prefix(size + 3);
    } else if (consume("<!--")) {
      if (!skipPast("-->")) {
        return std::nullopt;
      }
    } else if (consume("<?")) {
      if (!skipPast("?>")) {
        return std::nullopt;
      }
    } else if (consume("&")) {
      if (!appendReference(text)) {
        return std::nullopt;
      }
    } else {
      return consumeClosingTag(tag.name) ? std::optional(std::move(text)) : std::nullopt;
    }
  }
}

bool XMLPropertyListReader::appendReference(std::string& text) {
  struct Entity {
    std::string_view name;
    char character;
  };
  static constexpr std::array<Entity, 5> kEntities{
      {{"lt;", '<'}, {"gt;", '>'}, {"amp;", '&'}, {"quot;", '"'}, {"apos;", '\''}}};

  for (const auto& entity : kEntities) {
    if (consume(entity.name)) {
      text.push_back(entity.character);
      return true;
    }
  }
  if (!consume("#")) {
    return false;
  }
  const int base = consume("x") ? 16 : 10;
  const auto length = std::min(rest_.find(';'), rest_.size());
  const auto codePoint = wholeNumber<std::uint32_t>(rest_.substr(0, length), base);
  if (!codePoint || *codePoint > 0x10FFFF || !isXMLCharacter(*codePoint)) {
    return false;
  }
  appendUTF8(text, *codePoint);
  rest_.remove_prefix(std::min(length + 1, rest_.size()));
  return true;
}
