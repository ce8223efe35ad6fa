#include "platform/uikit/UIImage.h"

#include <array>
#include <utility>

#include "platform/services.h"

constexpr ClassOf<UIImage> UIImage::classObject{"UIImage"};

std::shared_ptr<UIImage> UIImage::imageNamed(const std::string& path) {
  struct Variant {
    const char* suffix;
    double scale;
  };
  static constexpr std::array<Variant, 3> kVariants{{{"@3x", 3}, {"@2x", 2}, {"", 1}}};

  const auto slash = path.find_last_of('/');
  auto dot = path.find_last_of('.');
  if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) {
    dot = path.size();
  }
  for (const auto& variant : kVariants) {
    std::string file = path.substr(0, dot) + variant.suffix + path.substr(dot);
    if (const auto pixels = services().pictures->pixelSize(file)) {
      auto image = alloc<UIImage>();
      image->path_ = path;
      image->file_ = std::move(file);
      image->scale_ = variant.scale;
      image->size_ = {pixels->width / variant.scale, pixels->height / variant.scale};
      return image;
    }
  }
  return nullptr;
}

std::shared_ptr<UIImage> UIImage::imageWithContentsOfFile(const std::string& path) {
  return imageNamed(path);
}

std::shared_ptr<UIImage> UIImage::imageWithCGImage(std::shared_ptr<const ::CGImage> image) {
  return imageWithCGImageScaleOrientation(std::move(image), 1, UIImageOrientation::kUp);
}

std::shared_ptr<UIImage> UIImage::imageWithCGImageScaleOrientation(
    std::shared_ptr<const ::CGImage> image, double scale, UIImageOrientation /*orientation*/) {
  if (!image) {
    return nullptr;
  }
  auto picture = alloc<UIImage>();
  picture->scale_ = scale;
  picture->size_ = {static_cast<CGFloat>(image->width()) / scale,
                    static_cast<CGFloat>(image->height()) / scale};
  picture->image_ = std::move(image);
  return picture;
}

std::shared_ptr<UIImage> UIImage::imageWithRenderingMode(UIImageRenderingMode mode) const {
  auto image = alloc<UIImage>();
  image->image_ = image_;
  image->path_ = path_;
  image->file_ = file_;
  image->scale_ = scale_;
  image->size_ = size_;
  image->renderingMode_ = mode;
  return image;
}

std::string UIImage::name() const {
  return path_.substr(path_.find_last_of('/') + 1);
}
