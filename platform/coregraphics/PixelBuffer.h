#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "platform/api.h"

/// The pixels of one picture: rows from the top, no gap between rows, one 32-bit word a pixel in
/// the machine's byte order, 0xAARRGGBB with the colours premultiplied by alpha (bytes B, G, R, A
/// on a little-endian machine). Every picture of the platform has this one layout, which toolkits
/// draw without conversion.
///
/// A buffer is written by the one who made it and read-only once it was handed out as
/// `std::shared_ptr<const PixelBuffer>`; then any thread may read it.
class PLATFORM_API PixelBuffer {
 public:
  /// Most pixels that one picture may have: 64 MiB of memory.
  static constexpr std::size_t kMaximumPixelCount = std::size_t{1} << 24;

  /// Contents are undefined. Null if a side is 0, the picture is larger than the maximum, or there
  /// is no memory.
  static std::shared_ptr<PixelBuffer> create(std::size_t width, std::size_t height);

  PixelBuffer(const PixelBuffer&) = delete;
  PixelBuffer& operator=(const PixelBuffer&) = delete;

  std::size_t width() const { return width_; }
  std::size_t height() const { return height_; }
  std::size_t bytesPerRow() const { return width_ * sizeof(std::uint32_t); }

  std::span<std::uint32_t> pixels() { return {pixels_.get(), width_ * height_}; }
  std::span<const std::uint32_t> pixels() const { return {pixels_.get(), width_ * height_}; }

 private:
  PixelBuffer(std::size_t width, std::size_t height, std::unique_ptr<std::uint32_t[]> pixels)
      : width_(width), height_(height), pixels_(std::move(pixels)) {}

  std::size_t width_;
  std::size_t height_;
  std::unique_ptr<std::uint32_t[]> pixels_;
};
