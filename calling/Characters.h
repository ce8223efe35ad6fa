#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/// One character of a UTF-8 text.
struct Character {
  char32_t codePoint = 0;
  std::size_t length = 0;  ///< In bytes.
};

/// The first character; nothing where the text is empty or does not start with well-formed UTF-8.
std::optional<Character> firstCharacter(std::string_view text);

/// 0 to 9 for a decimal digit of any script (general category Nd of Unicode 14).
std::optional<int> decimalDigit(char32_t codePoint);

/// Whether the text is of `0-9*#` alone; so is an empty one.
bool isDiallable(std::string_view text);

/// Whether the text is of ASCII digits alone, and of one at least.
bool isDigits(std::string_view text);
