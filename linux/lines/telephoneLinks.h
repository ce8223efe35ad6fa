#pragma once

#include <string>
#include <string_view>

/// The desktop's type of `tel:` addresses.
inline constexpr std::string_view kTelephoneLinks = "x-scheme-handler/tel";

/// The identifier of the entry that the desktop opens them with, as xdg-mime tells; empty for none.
std::string telephoneLinkHandler();

/// A `tel:` address for what is dialled. Encoded as addresses are, or with its hashes raw for
/// programs that do not decode.
std::string telephoneLink(std::string_view dial, bool isEncoded);
