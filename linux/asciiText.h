#pragma once

#include <string>
#include <string_view>

/// What protocols and files say of ASCII texts; the locale changes nothing of it. Any thread.

constexpr bool isAlphanumeric(char letter) {
  return (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z') ||
         (letter >= 'a' && letter <= 'z');
}

/// The text with its ASCII letters as small ones: names of hosts, schemes and fields do not tell
/// them apart.
std::string lowered(std::string_view text);

/// The text without the blanks, tabs and ends of lines around it.
std::string_view trimmed(std::string_view text);
