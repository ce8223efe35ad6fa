#include "settings/appearance/Theme.h"

#include <QQmlEngine>

#include "settings/appearance/Appearance.h"
#include "settings/appearance/SystemFont.h"

namespace {

constexpr double kBodySize = 17;
constexpr double kNoteSize = 13;

}  // namespace

Theme::Theme() {
  connect(&Appearance::shared(), &Appearance::changed, this, &Theme::colorsChanged);
}

Theme& Theme::shared() {
  static Theme theme;
  return theme;
}

Theme* Theme::create(QQmlEngine* /*engine*/, QJSEngine* /*scripts*/) {
  QQmlEngine::setObjectOwnership(&shared(), QQmlEngine::CppOwnership);
  return &shared();
}

QColor Theme::shown(const palette::Shades& shades) {
  return Appearance::shared().shown(shades);
}

QFont Theme::bodyFont() {
  return system_font::font(UIFont::systemFontOfSize(kBodySize));
}

QFont Theme::titleFont() {
  QFont font = bodyFont();
  font.setWeight(QFont::DemiBold);
  return font;
}

QFont Theme::noteFont() {
  return system_font::font(UIFont::systemFontOfSize(kNoteSize));
}

QFont Theme::segmentFont() {
  QFont font = noteFont();
  font.setLetterSpacing(QFont::AbsoluteSpacing, 0);
  return font;
}
