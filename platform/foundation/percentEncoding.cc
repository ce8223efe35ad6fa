#include "platform/foundation/percentEncoding.h"

#include "platform/foundation/asciiText.h"

std::string percentEncoded(std::string_view text, std::string_view marks) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string encoded;
  encoded.reserve(text.size());
  for (const char character : text) {
    if (isAlphanumeric(character) || marks.find(character) != std::string_view::npos) {
      encoded += character;
      continue;
    }
    const auto byte = static_cast<unsigned char>(character);
    encoded += '%';
    encoded += kDigits[byte >> 4U];
    encoded += kDigits[byte & 15U];
  }
  return encoded;
}

std::string stringByAddingPercentEncodingWithURLHostAllowedCharacters(std::string_view text) {
  return percentEncoded(text, "-._~!$&'()*+,;=:[]");
}
