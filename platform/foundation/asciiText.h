#pragma once

#include <string>
#include <string_view>

/// What protocols and files say of ASCII texts; the locale changes nothing of it. Any thread.

constexpr bool isAlphanumeric(char letter) {
  return (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z') ||
         (letter >= 'a' && letter <= 'z');
}

/// An ASCII letter as a small one; everything else as it is.
constexpr char lowered(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// An ASCII letter as a capital; everything else as it is.
constexpr char capital(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

/// The text with its ASCII letters as small ones: names of hosts, schemes and fields do not tell
/// them apart.
inline std::string lowered(std::string_view text) {
  std::string result(text);
  for (char& letter : result) {
    letter = lowered(letter);
  }
  return result;
}

/// The text with its ASCII letters as capitals.
inline std::string inCapitals(std::string_view text) {
  std::string result(text);
  for (char& letter : result) {
    letter = capital(letter);
  }
  return result;
}

/// Whether two texts differ at most in the case of ASCII letters.
constexpr bool equalsInAnyCase(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) {
    return false;
  }
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (lowered(left[i]) != lowered(right[i])) {
      return false;
    }
  }
  return true;
}

/// The text without the blanks, tabs and ends of lines around it.
constexpr std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto begin = text.find_first_not_of(kBlanks);
  return begin == std::string_view::npos
             ? std::string_view()
             : text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

/// The text with lines that end in line feeds, whatever they ended in before.
inline std::string withLineFeeds(std::string_view text) {
  std::string result;
  for (std::size_t index = 0; index < text.size(); ++index) {
    const bool isReturn = text[index] == '\r';
    if (!isReturn || !text.substr(index + 1).starts_with('\n')) {
      result += isReturn ? '\n' : text[index];
    }
  }
  return result;
}
