#include "linux/asciiText.h"

#include <algorithm>

std::string lowered(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  return result;
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto begin = text.find_first_not_of(kBlanks);
  return begin == std::string_view::npos
             ? std::string_view()
             : text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}
