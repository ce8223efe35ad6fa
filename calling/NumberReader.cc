#include "calling/NumberReader.h"

#include <algorithm>
#include <array>

#include "calling/Characters.h"
#include "platform/foundation/asciiText.h"

namespace {

constexpr std::size_t kLongestText = 512;
constexpr std::size_t kMostDigits = 40;

constexpr std::string_view kPauses = ",;pw";

bool isBlank(char32_t c) {
  return c == ' ' || c == '\t' || c == 0xA0 || c == 0x2007 || c == 0x202F;
}

bool isPunctuation(char32_t c) {
  constexpr std::u32string_view kPunctuation = U"-.()/";
  return (c >= 0x2010 && c <= 0x2015) || kPunctuation.find(c) != std::u32string_view::npos;
}

// Marks that do not change what is read. The override from right to left is none of them: it turns
// the digits around.
bool isDirectionMark(char32_t c) {
  return c == 0x200E || c == 0x200F || c == 0x202A || c == 0x202C || c == 0x202D ||
         (c >= 0x2066 && c <= 0x2069);
}

// Digits and `+` of other scripts as ASCII, without direction marks; each blank as one kind of
// blank, each other separator as a hyphen. Nothing where another character beyond ASCII is left.
std::optional<std::string> inASCII(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const auto character = firstCharacter(text);
    if (!character) {
      return std::nullopt;
    }
    text.remove_prefix(character->length);
    const char32_t c = character->codePoint;
    if (const auto digit = decimalDigit(c)) {
      result += static_cast<char>('0' + *digit);
    } else if (c == 0xFF0B) {
      result += '+';
    } else if (isBlank(c)) {
      result += ' ';
    } else if (isPunctuation(c)) {
      result += '-';
    } else if (c < 0x80) {
      result += static_cast<char>(c);
    } else if (!isDirectionMark(c)) {
      return std::nullopt;
    }
  }
  return result;
}

std::optional<int> hexadecimal(char c) {
  const char low = lowered(c);
  if (c >= '0' && c <= '9') {
    return c - '0';
  }
  return low >= 'a' && low <= 'f' ? std::optional(low - 'a' + 10) : std::nullopt;
}

std::optional<std::string> percentDecoded(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      result += text[i];
      continue;
    }
    const auto high = i + 2 < text.size() ? hexadecimal(text[i + 1]) : std::nullopt;
    const auto low = high ? hexadecimal(text[i + 2]) : std::nullopt;
    if (!low) {
      return std::nullopt;
    }
    result += static_cast<char>(*high * 16 + *low);
    i += 2;
  }
  return result;
}

// The number alone, of an ASCII text; nothing where it is none.
std::optional<std::string> number(std::string text, std::span<const std::string> prefixes) {
  std::erase_if(text, [](char c) { return c == ' ' || c == '-'; });
  const auto plus = text.find('+');
  std::string digits = text;
  if (plus != std::string::npos) {
    const std::string_view front(text.data(), plus);
    const bool isCode = std::ranges::find(prefixes, front) != prefixes.end() && !isDigits(front);
    if (plus != 0 && !isCode) {
      return std::nullopt;
    }
    digits.erase(plus, 1);
  }
  // A `+` with nothing behind it is as little a number as nothing at all.
  const bool hasEnd = !digits.empty() && plus != text.size() - 1;
  return hasEnd && digits.size() <= kMostDigits && isDiallable(digits) ? std::optional(text)
                                                                       : std::nullopt;
}

std::optional<ReadNumber> readBare(std::string_view text, std::span<const std::string> prefixes) {
  auto plain = inASCII(text);
  if (!plain) {
    return std::nullopt;
  }
  ReadNumber read;
  const auto pause = plain->find_first_of(kPauses);
  if (pause != std::string::npos) {
    read.hasRest = true;
    if (plain->find_first_not_of("0123456789*#,;pw ", pause) != std::string::npos) {
      return std::nullopt;
    }
    plain->resize(pause);
  }
  const auto digits = number(*plain, prefixes);
  if (!digits) {
    return std::nullopt;
  }
  read.number = *digits;
  return read;
}

bool isParameterText(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) {
    const char low = lowered(c);
    return (low >= 'a' && low <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == '+';
  });
}

// Takes up one `name[=value]`. False where it is no parameter.
bool readParameter(std::string_view parameter, ReadNumber& read) {
  const auto equals = parameter.find('=');
  const auto name = percentDecoded(parameter.substr(0, equals));
  const bool hasValue = equals != std::string_view::npos;
  const auto value = percentDecoded(hasValue ? parameter.substr(equals + 1) : "");
  if (!name || !value || !isParameterText(*name) || (hasValue && !isParameterText(*value))) {
    return false;
  }
  constexpr std::array<std::string_view, 3> kNotDialled{"ext", "isub", "postd"};
  if (std::ranges::any_of(kNotDialled, [&](auto known) { return equalsInAnyCase(*name, known); })) {
    read.hasRest = true;
  }
  if (equalsInAnyCase(*name, "phone-context")) {
    // Two contexts, or one that says nothing, place the number nowhere.
    if (!read.context.empty() || value->empty()) {
      return false;
    }
    read.context = *value;
  }
  return true;
}

// The slashes that some write behind the scheme are separators.
std::optional<ReadNumber> readAddress(std::string_view address,
                                      std::span<const std::string> prefixes) {
  ReadNumber read;
  const auto end = address.find(';');
  const auto decoded = percentDecoded(address.substr(0, end));
  const auto plain = decoded ? inASCII(*decoded) : std::nullopt;
  const auto digits = plain ? number(*plain, prefixes) : std::nullopt;
  if (!digits) {
    return std::nullopt;
  }
  read.number = *digits;
  for (auto start = end; start != std::string_view::npos;) {
    const auto next = address.find(';', start + 1);
    if (!readParameter(address.substr(start + 1, next - start - 1), read)) {
      return std::nullopt;
    }
    start = next;
  }
  return read;
}

}  // namespace

std::optional<ReadNumber> readNumber(std::string_view text, std::span<const std::string> prefixes) {
  if (text.size() > kLongestText) {
    return std::nullopt;
  }
  const auto colon = text.find(':');
  const auto scheme = text.substr(0, colon);
  if (colon != std::string_view::npos &&
      (equalsInAnyCase(scheme, "tel") || equalsInAnyCase(scheme, "callto"))) {
    return readAddress(text.substr(colon + 1), prefixes);
  }
  return readBare(text, prefixes);
}
