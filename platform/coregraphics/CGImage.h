#pragma once

#include <cstddef>
#include <memory>
#include <mutex>

#include "platform/api.h"
#include "platform/coregraphics/PixelBuffer.h"

/// Where a pixel's alpha is, and whether its colours are premultiplied by it. Values are the
/// phone's.
enum class CGImageAlphaInfo {
  kNone = 0,
  kPremultipliedLast = 1,
  kPremultipliedFirst = 2,
  kLast = 3,
  kFirst = 4,
  kNoneSkipLast = 5,
  kNoneSkipFirst = 6,
  kOnly = 7,
};

/// Makes the pixels of pictures, which it knows by numbers, when they are first asked for.
class PLATFORM_API PixelProvider {
 public:
  PixelProvider() = default;
  PixelProvider(const PixelProvider&) = delete;
  PixelProvider& operator=(const PixelProvider&) = delete;
  virtual ~PixelProvider() = default;

  /// Null if there is no memory for them. May be called on any thread.
  virtual std::shared_ptr<const PixelBuffer> makePixels(std::size_t picture) = 0;
};

/// An immutable picture. Any thread may use it.
///
/// One that an image source made is decoded when its pixels are first asked for, on the thread that
/// asks, and keeps them from then on. So making the images of all frames costs nothing, and a
/// picture that will stay on screen (a poster) is best asked for its pixels at once.
class PLATFORM_API CGImage {
 public:
  /// A picture of these pixels, which nobody may write any more. Null for no pixels.
  static std::shared_ptr<const CGImage> create(
      std::shared_ptr<const PixelBuffer> pixels,
      CGImageAlphaInfo alphaInfo = CGImageAlphaInfo::kPremultipliedFirst);

  /// A picture whose pixels come from `provider`, by the number `picture`, when they are first
  /// needed, and are exactly `width` x `height`.
  static std::shared_ptr<const CGImage> create(std::size_t width, std::size_t height,
                                               std::shared_ptr<PixelProvider> provider,
                                               std::size_t picture = 0);

  CGImage(const CGImage&) = delete;
  CGImage& operator=(const CGImage&) = delete;
  ~CGImage();

  /// In pixels.
  std::size_t width() const { return width_; }
  std::size_t height() const { return height_; }
  /// Always 4 x width.
  std::size_t bytesPerRow() const { return width_ * sizeof(std::uint32_t); }
  /// `kPremultipliedFirst`, or `kNoneSkipFirst` when it was drawn without alpha. The word is in the
  /// machine's byte order, see PixelBuffer.
  CGImageAlphaInfo alphaInfo() const { return alphaInfo_; }

  /// Decodes on the first call. The pixels outlive the picture and its source for as long as they
  /// are held. Null if there is no memory; a later call tries again.
  std::shared_ptr<const PixelBuffer> pixels() const;

 private:
  struct Private {};

 public:
  /// For create().
  CGImage(Private, std::size_t width, std::size_t height, CGImageAlphaInfo alphaInfo,
          std::shared_ptr<const PixelBuffer> pixels, std::shared_ptr<PixelProvider> provider,
          std::size_t picture);

 private:
  const std::size_t width_;
  const std::size_t height_;
  const CGImageAlphaInfo alphaInfo_;
  const std::size_t picture_;
  mutable std::mutex mutex_;  // guards the two below
  mutable std::shared_ptr<const PixelBuffer> pixels_;
  mutable std::shared_ptr<PixelProvider> provider_;  // dropped once the pixels are there
};
