#pragma once

#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/coregraphics/CGGeometry.h"
#include "platform/coregraphics/CGImage.h"
#include "platform/foundation/Subclass.h"

/// Whether a picture is drawn as it is or only its shape, in the tint in force where it stands;
/// automatic leaves that to the view.
enum class UIImageRenderingMode { kAutomatic, kAlwaysOriginal, kAlwaysTemplate };

/// How the pixels lie. Every picture of this platform is upright.
enum class UIImageOrientation { kUp = 0 };

/// A picture, from a file or from pixels. Those of a file stay in it until a host draws them. Main
/// thread.
class PLATFORM_API UIImage : public Subclass<UIImage, NSObject> {
 public:
  static const ClassOf<UIImage> classObject;

  /// The picture at that device path, in its finest variant ("name@3x.png", then "name@2x.png",
  /// then "name.png"); null when there is none that can be read.
  static std::shared_ptr<UIImage> imageNamed(const std::string& path);
  /// As imageNamed. The phone's two calls differ in caching only, and nothing is cached here.
  static std::shared_ptr<UIImage> imageWithContentsOfFile(const std::string& path);

  /// A picture of these pixels, one a point. Null for no pixels. Any thread.
  static std::shared_ptr<UIImage> imageWithCGImage(std::shared_ptr<const ::CGImage> image);
  /// The same with `scale` pixels a point.
  static std::shared_ptr<UIImage> imageWithCGImageScaleOrientation(
      std::shared_ptr<const ::CGImage> image, double scale, UIImageOrientation orientation);

  /// The same picture to be drawn in another way.
  std::shared_ptr<UIImage> imageWithRenderingMode(UIImageRenderingMode mode) const;

  /// The pixels; null for a picture from a file.
  const std::shared_ptr<const ::CGImage>& CGImage() const { return image_; }
  /// Device path of the file with the pixels, "@2x" and "@3x" included; empty for a picture that is
  /// not from a file.
  const std::string& file() const { return file_; }
  /// The name that was asked for: the last part of the path, without "@2x" or "@3x".
  std::string name() const;
  /// Pixels a point.
  double scale() const { return scale_; }
  /// Points.
  CGSize size() const { return size_; }
  UIImageOrientation imageOrientation() const { return UIImageOrientation::kUp; }
  UIImageRenderingMode renderingMode() const { return renderingMode_; }

 private:
  std::shared_ptr<const ::CGImage> image_;
  std::string path_;
  std::string file_;
  double scale_ = 1;
  CGSize size_;
  UIImageRenderingMode renderingMode_ = UIImageRenderingMode::kAutomatic;
};
