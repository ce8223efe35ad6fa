#include "platform/coregraphics/CGBitmapContext.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr std::uint32_t kOpaqueBlack = 0xFF000000;

std::uint32_t sourceOver(std::uint32_t source, std::uint32_t under) {
  const std::uint32_t rest = 255 - (source >> 24);
  if (rest == 0) {
    return source;
  }
  std::uint32_t result = 0;
  for (int shift = 0; shift < 32; shift += 8) {
    const std::uint32_t part = (((under >> shift) & 255) * rest + 127) / 255;
    result |= std::min<std::uint32_t>(((source >> shift) & 255) + part, 255) << shift;
  }
  return result;
}

/// One axis of a rectangle in whole pixels; empty where the rectangle has no extent or is no
/// number.
struct Extent {
  double start = 0;
  double length = 0;

  Extent(CGFloat origin, CGFloat size) {
    const double from = std::round(std::min(origin, origin + size));
    const double to = std::round(std::max(origin, origin + size));
    if (std::isfinite(from) && std::isfinite(to)) {
      start = from;
      length = to - from;
    }
  }

  std::size_t first(std::size_t limit) const {
    return static_cast<std::size_t>(std::clamp(start, 0.0, static_cast<double>(limit)));
  }
  std::size_t last(std::size_t limit) const {
    return static_cast<std::size_t>(std::clamp(start + length, 0.0, static_cast<double>(limit)));
  }
  std::size_t sample(std::size_t position, std::size_t count) const {
    const double scale = static_cast<double>(count) / length;
    const auto index =
        static_cast<std::size_t>((static_cast<double>(position) - start + 0.5) * scale);
    return std::min(index, count - 1);
  }
};

}  // namespace

std::unique_ptr<CGBitmapContext> CGBitmapContext::create(std::size_t width, std::size_t height,
                                                         std::size_t bitsPerComponent,
                                                         std::size_t bytesPerRow,
                                                         CGColorSpace /*space*/,
                                                         CGImageAlphaInfo alphaInfo) {
  const bool known = alphaInfo == CGImageAlphaInfo::kPremultipliedFirst ||
                     alphaInfo == CGImageAlphaInfo::kNoneSkipFirst;
  if (!known || bitsPerComponent != 8 || width == 0 || height == 0 ||
      width > PixelBuffer::kMaximumPixelCount / height ||
      (bytesPerRow != 0 && bytesPerRow != width * sizeof(std::uint32_t))) {
    return nullptr;
  }
  return std::unique_ptr<CGBitmapContext>(new CGBitmapContext(width, height, alphaInfo));
}

void CGBitmapContext::drawImage(const CGRect& rect, const CGImage& image) {
  const std::shared_ptr<const PixelBuffer> source = image.pixels();
  if (!source) {
    hasFailed_ = true;
    return;
  }
  const CGRect whole =
      CGRectMake(0, 0, static_cast<CGFloat>(width_), static_cast<CGFloat>(height_));
  if (!shared_ && !own_ && rect == whole && image.width() == width_ && image.height() == height_ &&
      image.alphaInfo() == alphaInfo_) {
    shared_ = source;
    return;
  }
  PixelBuffer* const target = writablePixels();
  if (target == nullptr) {
    hasFailed_ = true;
    return;
  }
  const std::uint32_t forced =
      image.alphaInfo() == CGImageAlphaInfo::kNoneSkipFirst ? kOpaqueBlack : 0;
  const Extent across(rect.origin.x, rect.size.width);
  const Extent down(rect.origin.y, rect.size.height);
  const std::size_t left = across.first(width_);
  const std::size_t right = across.last(width_);
  for (std::size_t y = down.first(height_); y < down.last(height_); ++y) {
    const std::uint32_t* const from =
        source->pixels().data() + down.sample(y, source->height()) * source->width();
    std::uint32_t* const to = target->pixels().data() + y * width_;
    for (std::size_t x = left; x < right; ++x) {
      to[x] = sourceOver(from[across.sample(x, source->width())] | forced, to[x]);
    }
  }
}

std::shared_ptr<const CGImage> CGBitmapContext::createImage() {
  if (hasFailed_ || (!shared_ && writablePixels() == nullptr)) {
    return nullptr;
  }
  if (own_) {
    shared_ = std::exchange(own_, nullptr);
  }
  return CGImage::create(shared_, alphaInfo_);
}

PixelBuffer* CGBitmapContext::writablePixels() {
  if (!own_) {
    own_ = PixelBuffer::create(width_, height_);
    if (own_ && shared_) {
      const std::span<const std::uint32_t> drawn = shared_->pixels();
      std::copy_n(drawn.data(), drawn.size(), own_->pixels().data());
      shared_.reset();
    } else if (own_) {
      const bool hasAlpha = alphaInfo_ == CGImageAlphaInfo::kPremultipliedFirst;
      std::fill_n(own_->pixels().data(), width_ * height_, hasAlpha ? 0 : kOpaqueBlack);
    }
  }
  return own_.get();
}
