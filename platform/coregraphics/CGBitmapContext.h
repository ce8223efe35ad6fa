#pragma once

#include <cstddef>
#include <memory>

#include "platform/api.h"
#include "platform/coregraphics/CGColorSpace.h"
#include "platform/coregraphics/CGGeometry.h"
#include "platform/coregraphics/CGImage.h"

/// A picture that is drawn into. One thread at a time.
///
/// Takes no memory until something is drawn. A first picture of exactly the context's size is
/// shared, not copied, so drawing a frame once to have it decoded costs the decoding alone; pixels
/// that are shared, also with an image made from the context, are copied before they are drawn
/// over.
class PLATFORM_API CGBitmapContext {
 public:
  /// An empty context: transparent, or black where `alphaInfo` has no alpha. Like
  /// CGBitmapContextCreate without a buffer and without a byte-order flag, which on this platform
  /// means the layout of PixelBuffer. `bytesPerRow` may be 0 for 4 x width. Null for anything but 8
  /// bits a component, rows of 4 x width bytes, `kPremultipliedFirst` or `kNoneSkipFirst`, or for a
  /// size that PixelBuffer refuses.
  static std::unique_ptr<CGBitmapContext> create(std::size_t width, std::size_t height,
                                                 std::size_t bitsPerComponent,
                                                 std::size_t bytesPerRow, CGColorSpace space,
                                                 CGImageAlphaInfo alphaInfo);

  /// Draws over what is there, scaled to `rect` (y downwards; edges rounded to whole pixels, the
  /// nearest pixel of the image taken) and cut off at the context's edges. If there is no memory,
  /// also for the image's own pixels, the context fails: there will be no picture of it any more,
  /// rather than one that lacks what was to be drawn.
  void drawImage(const CGRect& rect, const CGImage& image);

  /// A picture of what has been drawn; later drawing does not change it. Null if there is no
  /// memory, and once drawing has failed.
  std::shared_ptr<const CGImage> createImage();

 private:
  CGBitmapContext(std::size_t width, std::size_t height, CGImageAlphaInfo alphaInfo)
      : width_(width), height_(height), alphaInfo_(alphaInfo) {}

  PixelBuffer* writablePixels();

  std::size_t width_;
  std::size_t height_;
  CGImageAlphaInfo alphaInfo_;
  std::shared_ptr<const PixelBuffer> shared_;  // what is drawn so far; null while empty or own
  std::shared_ptr<PixelBuffer> own_;           // not handed out yet
  bool hasFailed_ = false;
};
