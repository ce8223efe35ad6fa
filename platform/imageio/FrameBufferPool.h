#pragma once

#include <atomic>
#include <cstddef>
#include <limits>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "platform/coregraphics/PixelBuffer.h"

class FrameBufferPool;

/// A buffer of the size of the canvas, and which frame it shows.
struct FrameBuffer {
  static constexpr std::size_t kNoFrame = std::numeric_limits<std::size_t>::max();

  std::shared_ptr<PixelBuffer> pixels;
  std::weak_ptr<FrameBufferPool> pool;  // where it goes when it is free
  std::size_t frame = kNoFrame;
  /// Loans, and places that the pool keeps it in. When there is none it is free.
  std::atomic<std::size_t> uses{0};
};

/// Recycles the frame buffers of one animation, so that steady play takes no fresh memory.
///
/// Frames are lent out read-only; when the last holder drops one, on any thread, it comes back with
/// its contents as they were. At most `kMaximumFree` wait for their next use, the rest is given
/// back to the system, so dropping many frames frees their memory.
///
/// One thread at a time calls the members; loans end on any thread.
class FrameBufferPool : public std::enable_shared_from_this<FrameBufferPool> {
 public:
  static constexpr std::size_t kMaximumFree = 2;

  FrameBufferPool(std::size_t width, std::size_t height) : width_(width), height_(height) {}

  /// A buffer that nobody else has, the one last returned if any waits. Null if there is no memory.
  std::shared_ptr<FrameBuffer> take();

  /// The current frame is never handed out by take(), and may be read while it is lent. Setting
  /// another one lets the pool have this one as soon as it is not lent. May be null.
  void setCurrent(std::shared_ptr<FrameBuffer> buffer) { keepIn(current_, std::move(buffer)); }
  const std::shared_ptr<FrameBuffer>& current() const { return current_; }
  /// Makes the current frame, which is writable, the caller's: then it is as if it came from
  /// take().
  std::shared_ptr<FrameBuffer> takeCurrent();
  /// Whether there is a current frame that is used nowhere else, and so may be written.
  bool isCurrentWritable() const;

  /// What is to be seen again when the current frame goes; kept as the current one is. May be null.
  void setUnder(std::shared_ptr<FrameBuffer> buffer) { keepIn(under_, std::move(buffer)); }
  const std::shared_ptr<FrameBuffer>& under() const { return under_; }

  /// Lends the current frame, again if it is lent already.
  std::shared_ptr<const PixelBuffer> lendCurrent();

 private:
  void keepIn(std::shared_ptr<FrameBuffer>& place, std::shared_ptr<FrameBuffer> buffer);
  void keepFree(const std::shared_ptr<FrameBuffer>& buffer);

  /// Whether that was the last use.
  static bool endUse(FrameBuffer& buffer);

  const std::size_t width_;
  const std::size_t height_;
  std::shared_ptr<FrameBuffer> current_;
  std::shared_ptr<FrameBuffer> under_;
  std::mutex mutex_;  // guards what follows
  std::vector<std::shared_ptr<FrameBuffer>> free_;
};
