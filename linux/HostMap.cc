#include "linux/HostMap.h"

#include <algorithm>
#include <charconv>

#include <arpa/inet.h>

#include "platform/foundation/asciiText.h"

namespace {

constexpr std::string_view kNameCharacters = "abcdefghijklmnopqrstuvwxyz0123456789-._";
constexpr std::string_view kAddressCharacters = "abcdefghijklmnopqrstuvwxyz0123456789-._:[]";

bool consistsOf(std::string_view text, std::string_view characters) {
  return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

}  // namespace

bool HostMap::Address::isLoopback() const {
  in_addr four{};
  if (inet_pton(AF_INET, host.c_str(), &four) == 1) {
    constexpr unsigned kLoopbackNet = 127;
    return ntohl(four.s_addr) >> 24U == kLoopbackNet;
  }
  return host == "[::1]";
}

bool HostMap::add(std::string_view text) {
  const auto equals = text.find('=');
  const auto colon = text.rfind(':');
  if (equals == std::string_view::npos || colon == std::string_view::npos || colon < equals) {
    return false;
  }
  auto name = lowered(text.substr(0, equals));
  auto host = lowered(text.substr(equals + 1, colon - equals - 1));
  const auto digits = text.substr(colon + 1);
  const bool inBrackets = host.starts_with('[') && host.ends_with(']');
  if (!consistsOf(name, kNameCharacters) || !consistsOf(host, kAddressCharacters) ||
      (!inBrackets && host.find_first_of(":[]") != std::string::npos)) {
    return false;
  }
  std::uint16_t port = 0;
  const auto* const end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, port);
  if (result.ec != std::errc{} || result.ptr != end || port == 0) {
    return false;
  }
  addresses_.insert_or_assign(std::move(name), Address{std::move(host), port});
  return true;
}

const HostMap::Address* HostMap::find(std::string_view name) const {
  const auto found = addresses_.find(lowered(name));
  return found == addresses_.end() ? nullptr : &found->second;
}
