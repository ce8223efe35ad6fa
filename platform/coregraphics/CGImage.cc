#include "platform/coregraphics/CGImage.h"

#include <utility>

CGImage::CGImage(Private /*unused*/, std::size_t width, std::size_t height,
                 CGImageAlphaInfo alphaInfo, std::shared_ptr<const PixelBuffer> pixels,
                 std::shared_ptr<PixelProvider> provider, std::size_t picture)
    : width_(width),
      height_(height),
      alphaInfo_(alphaInfo),
      picture_(picture),
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
  return std::make_shared<CGImage>(Private{}, width, height, alphaInfo, std::move(pixels), nullptr,
                                   0);
}

std::shared_ptr<const CGImage> CGImage::create(std::size_t width, std::size_t height,
                                               std::shared_ptr<PixelProvider> provider,
                                               std::size_t picture) {
  return std::make_shared<CGImage>(Private{}, width, height, CGImageAlphaInfo::kPremultipliedFirst,
                                   nullptr, std::move(provider), picture);
}

std::shared_ptr<const PixelBuffer> CGImage::pixels() const {
  const std::lock_guard lock(mutex_);
  if (!pixels_) {
    pixels_ = provider_->makePixels(picture_);
    if (pixels_) {
      provider_.reset();
    }
  }
  return pixels_;
}
