#pragma once

#include <string>
#include <string_view>

#include "platform/api.h"

/// The text with every byte of its UTF-8 form as "%" and two capital hexadecimal digits, except for
/// the ASCII letters and digits and -._~!$&'()*+,;=:[] which stay: the characters that the host
/// part of an address may hold (RFC 3986, 3.2.2, without "%"). Any thread.
PLATFORM_API std::string stringByAddingPercentEncodingWithURLHostAllowedCharacters(
    std::string_view text);
