#include "settings/appearance/SystemFont.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QString>
#include <algorithm>
#include <array>
#include <string>

#include <fontconfig/fontconfig.h>

#include "settings/messages/complain.h"

namespace {

constexpr const char* kFolder = "/usr/share/fonts/opentype/inter/";
constexpr std::array kFiles{"Inter-Regular.otf", "Inter-SemiBold.otf"};

QString& family() {
  static QString name;
  return name;
}

}  // namespace

void system_font::readAvailableFonts() {
  FcInit();
}

void system_font::load() {
  for (const char* file : kFiles) {
    const int id =
        QFontDatabase::addApplicationFont(QString::fromLatin1(kFolder) + QString::fromLatin1(file));
    const QStringList families = QFontDatabase::applicationFontFamilies(id);
    if (families.isEmpty()) {
      complain(std::string(kFolder) + file +
               " cannot be loaded (package fonts-inter); texts are shown in the system's own font");
      family() = QGuiApplication::font().family();
      return;
    }
    family() = families.front();
  }
  QGuiApplication::setFont(QFont(family()));
}

namespace {

// The family is drawn for small sizes; at the size of a row's title its letters stand as far apart
// as those of a phone only when they are set closer. In pixels.
qreal letterSpacing(double pointSize) {
  constexpr double kSmall = 13;
  constexpr double kTitle = 17;
  const double part = std::clamp((pointSize - kSmall) / (kTitle - kSmall), 0.0, 1.0);
  return -0.08 - 0.42 * part;
}

}  // namespace

QFont system_font::font(const UIFont& font) {
  QFont result(family());
  result.setPixelSize(qMax(1, qRound(font.pointSize)));
  result.setWeight(QFont::Normal);
  result.setLetterSpacing(QFont::AbsoluteSpacing, letterSpacing(font.pointSize));
  result.setCapitalization(font.capitals ? QFont::AllUppercase : QFont::MixedCase);
  result.setHintingPreference(QFont::PreferNoHinting);
  return result;
}
