#include "settings/appearance/Appearance.h"

#include <QLocale>
#include <QQmlEngine>
#include <utility>

namespace {

QColor asGiven(const UIColor& color) {
  return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                          static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

// The system's colours in dark surroundings.
QColor inTheDark(const UIColor& color) {
  switch (color.system) {
    case UISystemColor::kLabel:
      return {255, 255, 255};
    case UISystemColor::kSecondaryLabel:
    case UISystemColor::kHeaderLabel:
      return {152, 152, 159};
    case UISystemColor::kRowBackground:
      return {28, 28, 30};
    case UISystemColor::kTint:
      return {10, 132, 255};
    case UISystemColor::kRed:
      return {255, 69, 58};
    case UISystemColor::kNone:
      break;
  }
  return asGiven(color);
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
  return scheme_ == Scheme::Dark || (scheme_ == Scheme::System && desktopDark_);
}

bool Appearance::reducesMotion() const {
  return motion_ == Motion::Reduced || (motion_ == Motion::System && desktopReducesMotion_);
}

bool Appearance::isMirrored() const {
  return direction_ == Direction::RightToLeft ||
         (direction_ == Direction::System && QLocale().textDirection() == Qt::RightToLeft);
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
  return isDark() ? inTheDark(color) : asGiven(color);
}
