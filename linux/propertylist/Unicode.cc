#include "linux/propertylist/Unicode.h"

namespace {

unsigned byteAt(std::string_view bytes, std::size_t position) {
  return static_cast<unsigned char>(bytes[position]);
}

void appendUnit(std::string& bytes, char32_t unit) {
  bytes.push_back(static_cast<char>(unit >> 8U));
  bytes.push_back(static_cast<char>(unit & 0xFFU));
}

}  // namespace

std::optional<DecodedCharacter> decodeUTF8(std::string_view text) {
  if (text.empty()) {
    return std::nullopt;
  }
  const unsigned lead = byteAt(text, 0);
  if (lead < 0x80) {
    return DecodedCharacter{lead, 1};
  }
  std::size_t length = 0;
  char32_t codePoint = 0;
  char32_t least = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
    codePoint = lead & 0x1FU;
    least = 0x80;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    codePoint = lead & 0x0FU;
    least = 0x800;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    codePoint = lead & 0x07U;
    least = 0x10000;
  } else {
    return std::nullopt;
  }
  if (text.size() < length) {
    return std::nullopt;
  }
  for (std::size_t position = 1; position < length; ++position) {
    const unsigned next = byteAt(text, position);
    if ((next & 0xC0U) != 0x80) {
      return std::nullopt;
    }
    codePoint = (codePoint << 6U) | (next & 0x3FU);
  }
  if (codePoint < least || codePoint > 0x10FFFF) {
    return std::nullopt;
  }
  return DecodedCharacter{codePoint, length};
}

void appendUTF8(std::string& text, char32_t codePoint) {
  if (codePoint < 0x80) {
    text.push_back(static_cast<char>(codePoint));
    return;
  }
  unsigned shift = 0;
  if (codePoint < 0x800) {
    shift = 6;
    text.push_back(static_cast<char>(0xC0U | (codePoint >> shift)));
  } else if (codePoint < 0x10000) {
    shift = 12;
    text.push_back(static_cast<char>(0xE0U | (codePoint >> shift)));
  } else {
    shift = 18;
    text.push_back(static_cast<char>(0xF0U | (codePoint >> shift)));
  }
  while (shift > 0) {
    shift -= 6;
    text.push_back(static_cast<char>(0x80U | ((codePoint >> shift) & 0x3FU)));
  }
}

std::string utf8FromUTF16(std::string_view bytes, bool littleEndian) {
  const auto unitAt = [&](std::size_t position) -> char32_t {
    const unsigned first = byteAt(bytes, position);
    const unsigned second = byteAt(bytes, position + 1);
    return littleEndian ? (second << 8U) | first : (first << 8U) | second;
  };
  std::string text;
  text.reserve(bytes.size() / 2);
  for (std::size_t position = 0; position + 1 < bytes.size(); position += 2) {
    char32_t codePoint = unitAt(position);
    if (codePoint >= 0xD800 && codePoint <= 0xDBFF && position + 3 < bytes.size()) {
      const char32_t low = unitAt(position + 2);
      if (low >= 0xDC00 && low <= 0xDFFF) {
        codePoint = 0x10000 + ((codePoint - 0xD800) << 10U) + (low - 0xDC00);
        position += 2;
      }
    }
    appendUTF8(text, codePoint);
  }
  return text;
}

std::optional<std::string> utf16FromUTF8(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size() * 2);
  while (!text.empty()) {
    const auto character = decodeUTF8(text);
    if (!character) {
      return std::nullopt;
    }
    text.remove_prefix(character->length);
    if (character->codePoint < 0x10000) {
      appendUnit(bytes, character->codePoint);
    } else {
      const char32_t offset = character->codePoint - 0x10000;
      appendUnit(bytes, 0xD800 + (offset >> 10U));
      appendUnit(bytes, 0xDC00 + (offset & 0x3FFU));
    }
  }
  return bytes;
}

bool isXMLText(std::string_view text) {
  while (!text.empty()) {
    const auto character = decodeUTF8(text);
    if (!character || !isXMLCharacter(character->codePoint)) {
      return false;
    }
    text.remove_prefix(character->length);
  }
  return true;
}
