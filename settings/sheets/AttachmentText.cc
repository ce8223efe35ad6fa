#include "settings/sheets/AttachmentText.h"

#include <QStringDecoder>
#include <QStringList>

#include "linux/propertylist/PropertyListDateText.h"
#include "linux/propertylist/PropertyListSerialization.h"

namespace {

constexpr qsizetype kLongestText = 100'000;

QString scalarText(const PropertyListValue& value) {
  if (const auto* boolean = value.get<bool>()) {
    return *boolean ? QStringLiteral("yes") : QStringLiteral("no");
  }
  if (const auto* number = value.get<std::int64_t>()) {
    return QString::number(*number);
  }
  if (const auto* number = value.get<std::uint64_t>()) {
    return QString::number(*number);
  }
  if (const auto* number = value.get<double>()) {
    return QString::number(*number);
  }
  if (const auto* text = value.get<std::string>()) {
    return QStringLiteral("“%1”").arg(QString::fromStdString(*text));
  }
  if (const auto* data = value.get<PropertyListData>()) {
    return QStringLiteral("%1 bytes").arg(data->size());
  }
  if (const auto* date = value.get<PropertyListDate>()) {
    return QString::fromStdString(textFromDate(*date).value_or(""));
  }
  return QStringLiteral("another value");
}

void appendValue(QStringList& lines, const QString& indent, const QString& label,
                 const PropertyListValue& value) {
  const QString deeper = indent + QStringLiteral("    ");
  if (const auto* dictionary = value.get<PropertyListDictionary>()) {
    lines.append(indent + label);
    for (const auto& [key, entry] : *dictionary) {
      appendValue(lines, deeper, QString::fromStdString(key), entry);
    }
  } else if (const auto* array = value.get<PropertyListArray>()) {
    lines.append(indent + label);
    for (const auto& entry : *array) {
      appendValue(lines, deeper, QStringLiteral("•"), entry);
    }
  } else {
    lines.append(QStringLiteral("%1%2: %3").arg(indent, label, scalarText(value)));
  }
}

}  // namespace

QString readableText(const PropertyListData& data) {
  const std::string_view bytes(reinterpret_cast<const char*>(data.data()), data.size());
  if (const auto dictionary = dictionaryFromBytes(bytes)) {
    QStringList lines;
    for (const auto& [key, value] : *dictionary) {
      appendValue(lines, {}, QString::fromStdString(key), value);
    }
    return lines.join(u'\n').left(kLongestText);
  }
  QStringDecoder decoder(QStringDecoder::Utf8);
  const QString text = decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
  return decoder.hasError() ? QStringLiteral("%1 bytes").arg(data.size()) : text.left(kLongestText);
}
