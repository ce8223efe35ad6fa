#pragma once

#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/coregraphics/CGGeometry.h"
#include "platform/foundation/NSObject.h"

enum class UIImageRenderingMode { kAutomatic, kAlwaysOriginal, kAlwaysTemplate };

/// A picture from a file. The pixels stay in the file until a host draws them.
class PLATFORM_API UIImage : public NSObject {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }

  /// The picture at that device path, in its finest variant ("name@3x.png", then "name@2x.png",
  /// then "name.png"); null when there is none that can be read.
  static std::shared_ptr<UIImage> imageNamed(const std::string& path);
  /// As imageNamed. The phone's two calls differ in caching only, and nothing is cached here.
  static std::shared_ptr<UIImage> imageWithContentsOfFile(const std::string& path);

  /// The same picture to be drawn in another way.
  std::shared_ptr<UIImage> imageWithRenderingMode(UIImageRenderingMode mode) const;

  /// Device path of the file with the pixels, "@2x" and "@3x" included.
  const std::string& file() const { return file_; }
  /// The name that was asked for: the last part of the path, without "@2x" or "@3x".
  std::string name() const;
  /// Pixels a point.
  double scale() const { return scale_; }
  /// Points.
  CGSize size() const { return size_; }
  UIImageRenderingMode renderingMode() const { return renderingMode_; }

 private:
  std::string path_;
  std::string file_;
  double scale_ = 1;
  CGSize size_;
  UIImageRenderingMode renderingMode_ = UIImageRenderingMode::kAutomatic;
};
