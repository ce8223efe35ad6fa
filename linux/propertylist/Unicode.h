#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Texts are UTF-8 in memory. Property lists may hold halves of surrogate pairs on their own; these
/// take their three-byte form (as generalized UTF-8 has it), so that they come back unchanged.

struct DecodedCharacter {
  char32_t codePoint = 0;
  std::size_t length = 0;  ///< In bytes.
};

/// The first character of a text; nothing where the text is empty or does not start with a
/// well-formed one. A lone surrogate counts as a character.
std::optional<DecodedCharacter> decodeUTF8(std::string_view text);

void appendUTF8(std::string& text, char32_t codePoint);

inline bool isSurrogate(char32_t codePoint) {
  return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}

/// The text for UTF-16 units, big-endian unless said otherwise; an odd byte at the end is ignored.
std::string utf8FromUTF16(std::string_view bytes, bool littleEndian = false);

/// Big-endian UTF-16; nothing when the text is not well-formed.
std::optional<std::string> utf16FromUTF8(std::string_view text);

/// True when an XML 1.0 document may hold the character.
inline bool isXMLCharacter(char32_t codePoint) {
  return codePoint >= 0x20 ? !isSurrogate(codePoint) && codePoint != 0xFFFE && codePoint != 0xFFFF
                           : codePoint == '\t' || codePoint == '\n' || codePoint == '\r';
}

/// True when all of the text may stand in an XML 1.0 document.
bool isXMLText(std::string_view text);
