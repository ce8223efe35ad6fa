#include "settings/services/QtTextMeasurer.h"

#include <QString>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>

#include "settings/appearance/SystemFont.h"

namespace {

// Beyond any page; the layout counts in fixed-point numbers, which do not hold "as wide as it may
// be".
constexpr CGFloat kWidest = 100000;
// More text than this is on no page; laying it out takes time in proportion.
constexpr std::size_t kLongest = 65536;

}  // namespace

CGSize QtTextMeasurer::sizeOfText(std::string_view text, const UIFont& font, CGFloat width) {
  const std::string_view part = text.substr(0, kLongest);
  QString string = QString::fromUtf8(part.data(), static_cast<qsizetype>(part.size()));
  string.replace(u'\n', QChar::LineSeparator);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setUseDesignMetrics(true);
  QTextLayout layout(string, system_font::font(font));
  layout.setTextOption(option);
  layout.beginLayout();
  CGSize size;
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(std::clamp<CGFloat>(width, 0, kWidest));
    size.width = std::max<CGFloat>(size.width, line.naturalTextWidth());
    size.height += line.height();
  }
  layout.endLayout();
  return size;
}
