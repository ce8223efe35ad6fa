#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

/// Where to connect for a host's name, in place of looking it up: for demonstrations and tests.
class HostMap {
 public:
  struct Address {
    std::string host;  ///< A name or a number; IPv6 numbers stand in brackets.
    std::uint16_t port = 0;

    /// Whether it is a number that leads back to this machine.
    bool isLoopback() const;
    std::string text() const { return host + ":" + std::to_string(port); }
  };

  /// Takes NAME=ADDRESS:PORT; a name that is there already gets the new address. False, and nothing
  /// is taken, for any other text.
  bool add(std::string_view text);

  /// Names are compared without regard to case. Null for a name that is not mapped.
  const Address* find(std::string_view name) const;
  bool empty() const { return addresses_.empty(); }

 private:
  std::map<std::string, Address, std::less<>> addresses_;
};
