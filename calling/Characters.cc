#include "calling/Characters.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

// The zeros of all scripts; the other nine digits follow each.
constexpr std::array<char32_t, 66> kZeros{
    0x0030,  0x0660,  0x06F0,  0x07C0,  0x0966,  0x09E6,  0x0A66,  0x0AE6,  0x0B66,  0x0BE6,
    0x0C66,  0x0CE6,  0x0D66,  0x0DE6,  0x0E50,  0x0ED0,  0x0F20,  0x1040,  0x1090,  0x17E0,
    0x1810,  0x1946,  0x19D0,  0x1A80,  0x1A90,  0x1B50,  0x1BB0,  0x1C40,  0x1C50,  0xA620,
    0xA8D0,  0xA900,  0xA9D0,  0xA9F0,  0xAA50,  0xABF0,  0xFF10,  0x104A0, 0x10D30, 0x11066,
    0x110F0, 0x11136, 0x111D0, 0x112F0, 0x11450, 0x114D0, 0x11650, 0x116C0, 0x11730, 0x118E0,
    0x11950, 0x11C50, 0x11D50, 0x11DA0, 0x16A60, 0x16AC0, 0x16B50, 0x1D7CE, 0x1D7D8, 0x1D7E2,
    0x1D7EC, 0x1D7F6, 0x1E140, 0x1E2F0, 0x1E950, 0x1FBF0};

struct Form {
  std::size_t length;
  char32_t least;  // what a shorter form could hold is not well-formed
};

std::optional<Form> formOf(unsigned char lead) {
  if (lead < 0x80) {
    return Form{1, 0};
  }
  if (lead >= 0xC2 && lead <= 0xDF) {
    return Form{2, 0x80};
  }
  if (lead >= 0xE0 && lead <= 0xEF) {
    return Form{3, 0x800};
  }
  if (lead >= 0xF0 && lead <= 0xF4) {
    return Form{4, 0x10000};
  }
  return std::nullopt;
}

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

}  // namespace

std::optional<Character> firstCharacter(std::string_view text) {
  const auto form = text.empty() ? std::nullopt : formOf(static_cast<unsigned char>(text.front()));
  if (!form || text.size() < form->length) {
    return std::nullopt;
  }
  const auto lead = static_cast<unsigned char>(text.front());
  char32_t codePoint = form->length == 1 ? lead : lead & (0x7FU >> form->length);
  for (std::size_t i = 1; i < form->length; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0U) != 0x80) {
      return std::nullopt;
    }
    codePoint = (codePoint << 6U) | (byte & 0x3FU);
  }
  const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  if (codePoint < form->least || codePoint > 0x10FFFF || isSurrogate) {
    return std::nullopt;
  }
  return Character{codePoint, form->length};
}

std::optional<int> decimalDigit(char32_t codePoint) {
  const auto* const after = std::ranges::upper_bound(kZeros, codePoint);
  if (after == kZeros.begin() || codePoint - *std::prev(after) > 9) {
    return std::nullopt;
  }
  return static_cast<int>(codePoint - *std::prev(after));
}

bool isDiallable(std::string_view text) {
  return std::ranges::all_of(text, [](char character) {
    return isDigit(character) || character == '*' || character == '#';
  });
}

bool isDigits(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, isDigit);
}
