#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// What stands in a text that is meant to be called.
struct ReadNumber {
  std::string number;    ///< `0-9*#`, 1 to 40, and at most one `+`, first or behind a prefix.
  std::string context;   ///< Of an address: where a local number belongs; empty for none.
  bool hasRest = false;  ///< Something follows that is not dialled: an extension, a pause.
};

/// Reads a number as people write it, or a `tel:` or `callto:` address (RFC 3966). Separators and
/// direction marks go, decimal digits of all scripts become ASCII. Those of
/// `prefixes` that are no digits alone may stand in front of a `+`. Nothing for any other text: no
/// number is ever made by leaving pieces of a text out. Texts over 512 bytes are none.
std::optional<ReadNumber> readNumber(std::string_view text, std::span<const std::string> prefixes);
