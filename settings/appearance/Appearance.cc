#include "settings/appearance/Appearance.h"

#include <QLocale>
#include <QQmlEngine>
#include <utility>

namespace {

QColor asGiven(const UIColor& color) {
  return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                          static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

// Null for a colour that is not the system's.
const palette::Shades* shadesOf(UISystemColor color) {
  switch (color) {
    case UISystemColor::kLabel:
      return &palette::kText;
    case UISystemColor::kSecondaryLabel:
      return &palette::kSecondaryText;
    case UISystemColor::kHeaderLabel:
      return &palette::kHeaderText;
    case UISystemColor::kRowBackground:
      return &palette::kRow;
    case UISystemColor::kTint:
      return &palette::kTint;
    case UISystemColor::kRed:
      return &palette::kRed;
    case UISystemColor::kNone:
      break;
  }
  return nullptr;
}

}  // namespace

Appearance& Appearance::shared() {
  static Appearance appearance;
  return appearance;
}

Appearance* Appearance::create(QQmlEngine* /*engine*/, QJSEngine* /*scripts*/) {
  QQmlEngine::setObjectOwnership(&shared(), QQmlEngine::CppOwnership);
  return &shared();
}

bool Appearance::isDark() const {
  return scheme_ == Scheme::kDark || (scheme_ == Scheme::kSystem && desktopDark_);
}

bool Appearance::reducesMotion() const {
  return motion_ == Motion::kReduced || (motion_ == Motion::kSystem && desktopReducesMotion_);
}

bool Appearance::isMirrored() const {
  return direction_ == Direction::kRightToLeft ||
         (direction_ == Direction::kSystem && QLocale().textDirection() == Qt::RightToLeft);
}

template <class Value>
void Appearance::assign(Value& member, Value value) {
  if (std::exchange(member, value) != value) {
    emit changed();
  }
}

void Appearance::setScheme(Scheme scheme) {
  assign(scheme_, scheme);
}

void Appearance::setMotion(Motion motion) {
  assign(motion_, motion);
}

void Appearance::setDirection(Direction direction) {
  assign(direction_, direction);
}

void Appearance::setDesktopDark(bool dark) {
  assign(desktopDark_, dark);
}

void Appearance::setDesktopReducesMotion(bool reduces) {
  assign(desktopReducesMotion_, reduces);
}

QColor Appearance::shown(const UIColor& color) const {
  const auto* shades = shadesOf(color.system);
  return shades ? shown(*shades) : asGiven(color);
}

QColor Appearance::shown(const palette::Shades& shades) const {
  return QColor::fromRgba(isDark() ? shades.dark : shades.light);
}
