#include "linux/propertylist/Base64.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kNoDigit = 64;

constexpr auto kDigits = [] {
  std::array<std::uint8_t, 256> digits{};
  digits.fill(kNoDigit);
  for (std::size_t value = 0; value < kAlphabet.size(); ++value) {
    digits.at(static_cast<unsigned char>(kAlphabet[value])) = static_cast<std::uint8_t>(value);
  }
  return digits;
}();

}  // namespace

std::optional<PropertyListData> dataFromBase64(std::string_view text) {
  PropertyListData data;
  data.reserve(text.size() / 4 * 3);
  std::uint32_t bits = 0;
  unsigned count = 0;  // of digits in the current group of four
  unsigned padding = 0;
  for (const char character : text) {
    if (character == ' ' || character == '\t' || character == '\n' || character == '\r') {
      continue;
    }
    if (character == '=') {
      ++padding;
      continue;
    }
    const auto digit = kDigits[static_cast<unsigned char>(character)];
    if (digit == kNoDigit || padding > 0) {
      return std::nullopt;
    }
    bits = (bits << 6U) | digit;
    count = (count + 1) % 4;
    if (count != 1) {
      const unsigned spare = count == 0 ? 0 : 8 - 2 * count;  // bits that belong to the next byte
      data.push_back(static_cast<std::byte>(bits >> spare));
    }
  }
  const bool whole = count == 0 ? padding == 0 : count > 1 && padding == 4 - count;
  return whole ? std::optional(std::move(data)) : std::nullopt;
}

void appendBase64(std::string& text, const PropertyListData& data) {
  for (std::size_t position = 0; position < data.size(); position += 3) {
    const auto byteAt = [&](std::size_t offset) {
      return position + offset < data.size() ? std::to_integer<unsigned>(data[position + offset])
                                             : 0U;
    };
    const unsigned group = (byteAt(0) << 16U) | (byteAt(1) << 8U) | byteAt(2);
    const std::size_t bytes = std::min<std::size_t>(3, data.size() - position);
    for (unsigned digit = 0; digit < 4; ++digit) {
      text.push_back(digit <= bytes ? kAlphabet[(group >> (18U - 6U * digit)) & 0x3FU] : '=');
    }
  }
}
