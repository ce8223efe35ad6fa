#include "platform/coregraphics/PixelBuffer.h"

#include <new>

std::shared_ptr<PixelBuffer> PixelBuffer::create(std::size_t width, std::size_t height) {
  if (width == 0 || height == 0 || width > kMaximumPixelCount / height) {
    return nullptr;
  }
  std::unique_ptr<std::uint32_t[]> pixels(new (std::nothrow) std::uint32_t[width * height]);
  if (!pixels) {
    return nullptr;
  }
  return std::shared_ptr<PixelBuffer>(new PixelBuffer(width, height, std::move(pixels)));
}
