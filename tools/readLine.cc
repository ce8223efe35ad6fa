#include "tools/readLine.h"

std::optional<std::string> readLine(std::istream& in, std::size_t longest) {
  std::string text;
  for (char c = 0; in.get(c) && c != '\n';) {
    text += c;
    if (text.size() > longest) {
      return std::nullopt;
    }
  }
  if (text.ends_with('\r')) {
    text.pop_back();
  }
  return text;
}
