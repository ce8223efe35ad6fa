#include "linux/lines/telephoneLinks.h"

#include <chrono>

#include "linux/desktopProgram.h"

namespace {

constexpr std::chrono::seconds kPatience(5);
constexpr std::size_t kLongestAnswer = 4096;

}  // namespace

std::string telephoneLinkHandler() {
  const auto answer = outputOfDesktopProgram(
      {"xdg-mime", "query", "default", std::string(kTelephoneLinks)}, kPatience, kLongestAnswer);
  return answer ? answer->substr(0, answer->find_first_of(" \t\r\n")) : std::string();
}

std::string telephoneLink(std::string_view dial, bool isEncoded) {
  std::string link = "tel:";
  for (const char c : dial) {
    if (c == '#' && isEncoded) {
      link += "%23";
    } else {
      link += c;
    }
  }
  return link;
}
