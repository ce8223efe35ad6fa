#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/api.h"
#include "platform/coregraphics/CGImage.h"

class GIFCompositor;

/// What a GIF says of one of its frames (the phone's kCGImagePropertyGIFDictionary). Both delays
/// are absent where the frame has no control extension.
struct CGImagePropertyGIFDictionary {
  /// kCGImagePropertyGIFUnclampedDelayTime: seconds, exactly as in the file.
  std::optional<double> unclampedDelayTime;
  /// kCGImagePropertyGIFDelayTime: seconds; a delay below 0.02, which no display can keep and old
  /// files use for "as fast as may be", is 0.1.
  std::optional<double> delayTime;
};

/// Properties of one frame.
struct CGImageProperties {
  std::size_t pixelWidth = 0;
  std::size_t pixelHeight = 0;
  CGImagePropertyGIFDictionary gif;
};

/// The images in a file's bytes. GIF is the only format it reads; GIFStructure says what it makes
/// of faulty files, GIFCompositor what frames and jumps cost and how much memory is taken.
///
/// Making a source reads the file's structure only, without decoding. A source and its images may
/// be used from any thread; decoding happens one thread at a time. Images outlive their source.
///
/// A frame in playback order is decoded alone. One that is out of order may need all before it, and
/// is decoded to its end whatever that takes: each of them at most twice, together at most 2^37
/// pixels and at most 5,462 for a byte of the file, and nothing is cleared that is clear. Meanwhile
/// other frames are not held up: every 2^26 pixels those who wait for one go first.
class PLATFORM_API CGImageSource {
 public:
  using Data = std::shared_ptr<const std::vector<std::uint8_t>>;

  /// CGImageSourceCreateWithData. Shares the bytes, which must not change. Null if they are no
  /// image.
  static std::shared_ptr<CGImageSource> createWithData(Data data);

  CGImageSource(const CGImageSource&) = delete;
  CGImageSource& operator=(const CGImageSource&) = delete;
  ~CGImageSource();

  /// CGImageSourceGetType: the uniform type identifier of the container.
  std::string_view type() const;

  /// CGImageSourceGetCount: the frames, those included that cannot be decoded.
  std::size_t count() const;

  /// CGImageSourceCreateImageAtIndex: the whole canvas while that frame shows. It is decoded when
  /// its pixels are first asked for, best in playback order. Null for an index past the end and for
  /// a frame whose structure is at fault; faults in a frame's data leave the rest of the canvas as
  /// it was.
  std::shared_ptr<const CGImage> createImageAtIndex(std::size_t index) const;

  /// CGImageSourceCopyPropertiesAtIndex. Nothing for an index past the end.
  std::optional<CGImageProperties> copyPropertiesAtIndex(std::size_t index) const;

 private:
  explicit CGImageSource(std::shared_ptr<GIFCompositor> compositor);

  std::shared_ptr<GIFCompositor> compositor_;
};
