#include "tools/terminalStyle.h"

#include <algorithm>

namespace {

std::string styled(const char* code, const std::string& text, const Streams& streams) {
  return streams.hasColours ? "\x1b[" + std::string(code) + "m" + text + "\x1b[0m" : text;
}

}  // namespace

std::string bold(const std::string& text, const Streams& streams) {
  return styled("1", text, streams);
}

std::string warningColour(const std::string& text, const Streams& streams) {
  return styled("33", text, streams);
}

std::string onTerminal(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string shown;
  for (const char letter : text) {
    const auto byte = static_cast<unsigned char>(letter);
    if (byte >= ' ' && byte != 0x7F) {
      shown += letter;
    } else {
      shown.append("\\x").append(1, kDigits[byte >> 4U]).append(1, kDigits[byte & 15U]);
    }
  }
  return shown;
}

std::size_t widthOf(std::string_view text) {
  // A character's further bytes begin with the bits 10.
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; }));
}
