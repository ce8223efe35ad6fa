#pragma once

#include <string>
#include <string_view>

#include "platform/api.h"

/// The text with every byte of its UTF-8 form as "%" and two capital hexadecimal digits, except for
/// the ASCII letters and digits and the marks, which stay. Any thread.
PLATFORM_API std::string percentEncoded(std::string_view text, std::string_view marks);

/// The marks that no part of an address gives a meaning (RFC 3986, 2.3).
inline constexpr std::string_view kUnreservedMarks = "-._~";

/// The same where -._~!$&'()*+,;=:[] are the marks: what the host part of an address may hold (RFC
/// 3986, 3.2.2, without "%"). Any thread.
PLATFORM_API std::string stringByAddingPercentEncodingWithURLHostAllowedCharacters(
    std::string_view text);
