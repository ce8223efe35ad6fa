#pragma once

#include <string>
#include <string_view>

inline std::string inQuotes(std::string_view text) {
  return '"' + std::string(text) + '"';
}
