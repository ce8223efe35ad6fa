#pragma once

#include <string>
#include <string_view>

#include "platform/foundation/asciiText.h"

/// The text in small letters and without blanks: names that people type are compared so.
inline std::string compactText(std::string_view text) {
  auto result = lowered(text);
  std::erase(result, ' ');
  return result;
}
