#pragma once

#include <string>
#include <string_view>

/// The text with its ASCII letters as small ones: names of hosts, schemes and fields do not tell
/// them apart. Any thread.
std::string lowered(std::string_view text);
