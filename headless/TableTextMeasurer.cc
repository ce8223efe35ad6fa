#include "headless/TableTextMeasurer.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr double kLineHeight = 1.2;

// Advance of a letter as a share of the font size: narrow, ordinary and wide letters of a sans
// serif.
double advance(unsigned char byte) {
  constexpr std::string_view kNarrow = "iljtfrI.,:;!|'()[] ";
  constexpr std::string_view kWide = "mwMW@%&";
  if ((byte & 0xC0U) == 0x80U) {
    return 0;  // the rest of a letter of several bytes
  }
  if (kNarrow.find(static_cast<char>(byte)) != std::string_view::npos) {
    return 0.3;
  }
  if (kWide.find(static_cast<char>(byte)) != std::string_view::npos) {
    return 0.85;
  }
  return byte >= 'A' && byte <= 'Z' ? 0.67 : 0.54;
}

double widthOf(std::string_view text, const UIFont& font) {
  double width = 0;
  for (const char letter : text) {
    const bool raised = font.capitals && letter >= 'a' && letter <= 'z';
    width += advance(static_cast<unsigned char>(raised ? 'A' : letter)) * font.pointSize;
  }
  return width;
}

struct Lines {
  int count = 0;
  double widest = 0;
};

// Breaks one paragraph.
void addParagraph(Lines& lines, std::string_view paragraph, const UIFont& font, double width) {
  double line = 0;
  const auto endLine = [&] {
    ++lines.count;
    lines.widest = std::max(lines.widest, line);
    line = 0;
  };
  while (!paragraph.empty()) {
    const auto end = std::min(paragraph.find(' '), paragraph.size() - 1) + 1;
    const auto word = paragraph.substr(0, end);
    paragraph.remove_prefix(end);
    if (line > 0 && line + widthOf(word.substr(0, word.find(' ')), font) > width) {
      endLine();
    }
    for (const char letter : word) {
      const double step = widthOf({&letter, 1}, font);
      if (letter != ' ' && line > 0 && line + step > width) {
        endLine();
      }
      line += step;
    }
  }
  endLine();
}

}  // namespace

CGSize TableTextMeasurer::sizeOfText(std::string_view text, const UIFont& font, CGFloat width) {
  if (text.empty()) {
    return CGSizeZero;
  }
  Lines lines;
  for (;;) {
    const auto end = text.find('\n');
    addParagraph(lines, text.substr(0, end), font, width);
    if (end == std::string_view::npos) {
      break;
    }
    text.remove_prefix(end + 1);
  }
  return {lines.widest, lines.count * font.pointSize * kLineHeight};
}
