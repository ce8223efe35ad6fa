#include "settings/accessibility/SpokenText.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace {

constexpr std::array kDigits{"zero", "one", "two",   "three", "four",
                             "five", "six", "seven", "eight", "nine"};

bool isDialSign(QChar sign) {
  return (sign >= u'0' && sign <= u'9') || sign == u'*' || sign == u'#';
}

}  // namespace

QString spokenText(const QString& text) {
  const QString code = text.trimmed();
  if (code.size() < 2 || !std::ranges::all_of(code, isDialSign)) {
    return text;
  }
  QStringList words;
  for (const QChar sign : code) {
    if (sign == u'*') {
      words.append(QStringLiteral("star"));
    } else if (sign == u'#') {
      words.append(QStringLiteral("hash"));
    } else {
      words.append(QLatin1String(kDigits[sign.unicode() - u'0']));
    }
  }
  return words.join(u' ');
}
