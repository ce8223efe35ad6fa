#include "platform/coregraphics/CGGeometry.h"

#include <array>
#include <charconv>

namespace {

std::string shortestDecimal(double number) {
  std::array<char, 32> buffer{};
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  return {buffer.data(), end};
}

}  // namespace

std::string NSStringFromCGSize(CGSize size) {
  return "{" + shortestDecimal(size.width) + ", " + shortestDecimal(size.height) + "}";
}
