#pragma once

#include <cstddef>
#include <string_view>

/// The markers of the binary form: the kind of an object is the high half of its first byte.
namespace bplist {

inline constexpr std::string_view kHeader = "bplist00";
inline constexpr std::size_t kTrailerSize = 32;

inline constexpr unsigned kSimple = 0x0;  ///< The low half tells which: a boolean or null.
inline constexpr unsigned kFalse = 0x8;
inline constexpr unsigned kTrue = 0x9;
inline constexpr unsigned kInteger = 0x1;  ///< 2^low bytes; up to 4 are unsigned, 8 signed.
inline constexpr unsigned kReal = 0x2;     ///< 2^low bytes, IEEE 754.
inline constexpr unsigned kDate = 0x3;     ///< Like a real of 8 bytes: seconds since 2001.
inline constexpr unsigned kData = 0x4;     ///< For this and the following the low half is a count,
inline constexpr unsigned kASCII = 0x5;    ///< or kLongCount where an integer object follows.
inline constexpr unsigned kUTF16 = 0x6;
inline constexpr unsigned kUID = 0x8;  ///< low + 1 bytes.
inline constexpr unsigned kArray = 0xA;
inline constexpr unsigned kDictionary = 0xD;
inline constexpr unsigned kLongCount = 0xF;

}  // namespace bplist
