#include "settings/pictures/PictureProvider.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <utility>

#include "platform/uikit/UIImage.h"

namespace {

constexpr qint64 kMostFileBytes = 16LL * 1024 * 1024;
constexpr int kMostPixelsASide = 4096;

QImage decode(const QString& file) {
  const QFileInfo info(file);
  // Anything but a regular file could keep the reader waiting.
  if (!info.isFile() || info.size() > kMostFileBytes) {
    return {};
  }
  QImageReader reader(file);
  const QSize size = reader.size();
  if (size.width() > kMostPixelsASide || size.height() > kMostPixelsASide) {
    return {};
  }
  return reader.read();
}

void tintWith(QImage& image, const QColor& tint) {
  image.convertTo(QImage::Format_ARGB32_Premultiplied);
  QPainter painter(&image);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(image.rect(), tint);
}

}  // namespace

PictureProvider::PictureProvider(PathResolver resolve)
    : QQuickImageProvider(QQuickImageProvider::Image), resolve_(std::move(resolve)) {}

QUrl PictureProvider::urlFor(const UIImage& image, const QColor& tint) {
  return urlForFile(image.file(), tint);
}

QUrl PictureProvider::urlForFile(const std::string& devicePath, const QColor& tint) {
  // Hexadecimal, so that no sign of the path means anything in an address.
  QByteArray id = QByteArray::fromStdString(devicePath).toHex();
  if (tint.isValid()) {
    id += '-' + tint.name(QColor::HexArgb).mid(1).toLatin1();
  }
  return {QStringLiteral("image://%1/%2").arg(QLatin1String(kName), QLatin1String(id))};
}

QImage PictureProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
  const QStringList parts = id.split(u'-');
  const QByteArray devicePath = QByteArray::fromHex(parts.front().toLatin1());
  const std::string file = resolve_(devicePath.toStdString());
  QImage image = file.empty() ? QImage() : decode(QString::fromStdString(file));
  if (size) {
    *size = image.size();
  }
  if (image.isNull()) {
    return image;
  }
  if (parts.size() > 1) {
    tintWith(image, QColor(u'#' + parts[1]));
  }
  if (requestedSize.width() > 0 && requestedSize.height() > 0) {
    image = image.scaled(requestedSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  return image;
}
