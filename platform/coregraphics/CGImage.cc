#include "platform/coregraphics/CGImage.h"

#include <utility>

CGImage::CGImage(std::size_t width, std::size_t height, CGImageAlphaInfo alphaInfo,
                 std::shared_ptr<const PixelBuffer> pixels, std::shared_ptr<PixelProvider> provider)
    : width_(width),
      height_(height),
      alphaInfo_(alphaInfo),
      pixels_(std::move(pixels)),
      provider_(std::move(provider)) {}

CGImage::~CGImage() = default;

std::shared_ptr<const CGImage> CGImage::create(std::shared_ptr<const PixelBuffer> pixels,
                                               CGImageAlphaInfo alphaInfo) {
  if (!pixels) {
    return nullptr;
  }
  const std::size_t width = pixels->width();
  const std::size_t height = pixels->height();
  return std::shared_ptr<const CGImage>(
      new CGImage(width, height, alphaInfo, std::move(pixels), nullptr));
}

std::shared_ptr<const CGImage> CGImage::create(std::size_t width, std::size_t height,
                                               std::shared_ptr<PixelProvider> provider) {
  return std::shared_ptr<const CGImage>(new CGImage(
      width, height, CGImageAlphaInfo::premultipliedFirst, nullptr, std::move(provider)));
}

std::shared_ptr<const PixelBuffer> CGImage::pixels() const {
  const std::lock_guard lock(mutex_);
  if (!pixels_) {
    pixels_ = provider_->makePixels();
    if (pixels_) {
      provider_.reset();
    }
  }
  return pixels_;
}
