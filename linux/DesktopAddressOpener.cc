#include "linux/DesktopAddressOpener.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <string_view>

#include "linux/desktopProgram.h"
#include "platform/foundation/asciiText.h"

namespace {

constexpr auto kLongestQuery = std::chrono::seconds(5);
constexpr std::size_t kLongestAnswer = 4096;

bool isLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

// The scheme of an address (RFC 3986, 3.1); nothing when it has none, or holds blanks or control
// characters, which no address does.
std::optional<std::string> schemeOf(std::string_view url) {
  const auto colon = url.find(':');
  const bool printable = std::ranges::all_of(
      url, [](char character) { return static_cast<unsigned char>(character) > ' '; });
  if (colon == std::string_view::npos || !printable || !isLetter(url.front())) {
    return std::nullopt;
  }
  const auto scheme = url.substr(0, colon);
  const bool wellFormed = std::ranges::all_of(scheme, [](char character) {
    return isLetter(character) || (character >= '0' && character <= '9') || character == '+' ||
           character == '-' || character == '.';
  });
  return wellFormed ? std::optional<std::string>(scheme) : std::nullopt;
}

}  // namespace

bool DesktopAddressOpener::canOpen(const std::string& url) {
  const auto scheme = schemeOf(url);
  if (!scheme) {
    return false;
  }
  const auto handler = outputOfDesktopProgram(
      {"xdg-mime", "query", "default", "x-scheme-handler/" + lowered(*scheme)}, kLongestQuery,
      kLongestAnswer);
  return handler && handler->find_first_not_of(" \t\r\n") != std::string::npos;
}

void DesktopAddressOpener::open(const std::string& url) {
  if (schemeOf(url)) {
    startDesktopProgram({"xdg-open", url});
  }
}
