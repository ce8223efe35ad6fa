#pragma once

#include <QColor>
#include <QQuickImageProvider>
#include <QUrl>
#include <functional>
#include <string>

class UIImage;

/// Gives QML the pictures of the frameworks, from their files. Decoding is bounded in size, and
/// runs on the toolkit's own thread for pictures, so that the window never waits for it.
class PictureProvider : public QQuickImageProvider {
 public:
  /// Gives the real path of a device path; empty where there is none. Called on any thread.
  using PathResolver = std::function<std::string(const std::string& devicePath)>;

  static constexpr const char* kName = "picture";

  explicit PictureProvider(PathResolver resolve);

  /// The address under which QML gets that picture; with a valid tint, its shape in that colour.
  static QUrl urlFor(const UIImage& image, const QColor& tint);

  /// The same for a file of the device.
  static QUrl urlForFile(const std::string& devicePath, const QColor& tint);

  QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;

 private:
  PathResolver resolve_;
};
