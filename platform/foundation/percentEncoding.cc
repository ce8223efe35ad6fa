#include "platform/foundation/percentEncoding.h"

namespace {

bool isHostAllowed(char character) {
  constexpr std::string_view kMarks = "-._~!$&'()*+,;=:[]";
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         (character >= '0' && character <= '9') || kMarks.find(character) != std::string_view::npos;
}

}  // namespace

std::string stringByAddingPercentEncodingWithURLHostAllowedCharacters(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string encoded;
  encoded.reserve(text.size());
  for (const char character : text) {
    if (isHostAllowed(character)) {
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
