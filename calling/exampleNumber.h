#pragma once

/// A number that nobody has, to show how one would be dialled.
inline constexpr const char* kExampleNumber = "0171 555 0134";
