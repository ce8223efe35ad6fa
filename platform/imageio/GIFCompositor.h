#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <span>
#include <vector>

#include "platform/coregraphics/CGImage.h"
#include "platform/coregraphics/PixelBuffer.h"
#include "platform/imageio/FrameBufferPool.h"
#include "platform/imageio/GIFChangedRows.h"
#include "platform/imageio/GIFDrawnPixels.h"
#include "platform/imageio/GIFPainter.h"
#include "platform/imageio/GIFStructure.h"

/// Composites the frames of one GIF at full canvas size, in any order. Calls from several threads
/// wait for each other.
///
/// The canvas starts transparent; disposal 2 clears the frame's rectangle to transparent whatever
/// the background colour, disposal 3 brings back what was there before the frame.
///
/// Frames in playback order cost one decode each. If the frame before has been dropped meanwhile,
/// the next is drawn over it in place; if it is still held, into a recycled buffer in which only
/// what changed since, and is not about to be cleared or drawn over, is brought up to date. Any
/// other frame starts from the nearest earlier state that needs nothing before it: an empty canvas,
/// a frame that covers the canvas without transparency, the frame decoded last, or a kept canvas.
/// What disposal undoes on the way is not decoded.
///
/// Canvases are kept only while frames are decoded for a jump, one every so many frames, so
/// a player that never jumps pays nothing for them and a second jump into the same frames decodes
/// at most that many.
///
/// A jump decodes no frame more than twice, all together at most 2 x
/// GIFStructure::kMaximumCompositedPixelCount pixels and, since a code of at least 12 bits stands
/// for a string of less than 4,096 pixels, at most 2 x 2,731 for each byte of the file. It clears
/// only what has been drawn since it was clear. Every `kMaximumPixelsAtOnce` it lets the calls that
/// wait go first. What is longer than that goes one jump at a time.
///
/// Memory besides the file, its structure and the frames that callers hold: one canvas, a second
/// one with disposal 3, one byte a pixel of the largest frame, FrameBufferPool::kMaximumFree
/// canvases once callers hold frames, and the kept canvases, `kMaximumKeptBytes` together; during a
/// jump one bit a pixel, and one more canvas if others ask for frames meanwhile.
class GIFCompositor : public PixelProvider {
 public:
  static constexpr std::size_t kMaximumKeptBytes = std::size_t{8} << 20;
  static constexpr std::size_t kMinimumKeptSpacing = 8;
  /// Others wait for so many pixels decoded, and what they need copied and cleared, and for the
  /// frame at hand: four canvases of the largest size.
  static constexpr std::size_t kMaximumPixelsAtOnce = std::size_t{1} << 26;

  GIFCompositor(std::shared_ptr<const std::vector<std::uint8_t>> data, GIFStructure structure);

  const GIFStructure& structure() const { return structure_; }

  /// The canvas while this frame shows. The caller may hold it for as long as it likes. Null if the
  /// frame is not decodable or there is no memory; then other frames are as before.
  std::shared_ptr<const PixelBuffer> makePixels(std::size_t index) override;

  /// Pixels decoded, copied and cleared so far.
  std::size_t work();

 private:
  /// Whether a frame's data gives all of its visible pixels; known once it has been decoded.
  enum class Coverage : std::uint8_t { kUnknown, kComplete, kPartial };

  /// From where the canvas before `first` is had.
  enum class Origin { kNothingNeeded, kEmpty, kCurrentFrame, kKeptCanvas };
  struct Start {
    Origin origin;
    std::size_t first;
  };
  enum class Outcome { kDone, kCoverageWasWrong, kNoMemory };

  /// A frame on its way to the canvas.
  struct Drawing {
    std::size_t wanted;
    Start start;
    bool replacesFirst;  ///< The first frame is all that will be seen in its rectangle.
    FrameBuffer* target;
    std::shared_ptr<FrameBuffer> before;    ///< Shows the canvas as long as nothing is drawn.
    std::unique_ptr<GIFDrawnPixels> drawn;  ///< Where something is cleared on the way.
  };

  using Lock = std::unique_lock<std::mutex>;
  class Turn;

  Lock enter();
  void giveWay(Lock& lock);
  bool isLong(Start start, std::size_t index) const;
  Outcome compositeInTurn(std::size_t index, Lock& lock);

  bool coversAll(std::size_t index) const;
  bool clearsAll(std::size_t index) const;

  Start findStart(std::size_t index, std::size_t from);
  Outcome composite(std::size_t index, Start start, Lock* lock);
  Outcome draw(std::size_t index, Drawing& drawing);
  void finish(Drawing& drawing, std::shared_ptr<FrameBuffer> taken);
  bool needsDrawnPixels(Start start, std::size_t index) const;
  void prepare(FrameBuffer& target, Start start, bool replacesRect);
  void prepareFromCurrent(FrameBuffer& target, std::size_t first, bool replacesRect);
  bool replacesCanvas(Start start, std::size_t index) const;
  bool replacesClearedRect(Start start, std::size_t index) const;
  std::shared_ptr<FrameBuffer> bufferBefore(Start start, const FrameBuffer& target) const;
  void findChanges(const FrameBuffer& target, const FrameBuffer& from);
  GIFPainter::Result paint(std::size_t index, FrameBuffer& target, GIFPainter::Mode mode,
                           GIFDrawnPixels* drawn);

  void clearRect(const GIFRect& rect, PixelBuffer& pixels);
  void clearAround(const GIFRect& inner, const GIFRect& rect, PixelBuffer& pixels);
  bool save(const GIFRect& rect, const PixelBuffer& pixels);
  void restore(const GIFRect& rect, PixelBuffer& pixels);
  std::size_t lastKeepable(std::size_t index) const;
  void keepCanvas(std::size_t index, const PixelBuffer& pixels);

  const std::shared_ptr<const std::vector<std::uint8_t>> data_;
  const GIFStructure structure_;
  const std::size_t keptSpacing_;  // 0 if the canvas is too large to keep any

  std::atomic<unsigned> waiting_ = 0;  // calls that wait for the mutex
  std::mutex mutex_;                   // guards what follows
  std::condition_variable changed_;    // of the next two
  std::size_t entered_ = 0;            // calls that have waited and got it
  bool isJumpUnderWay_ = false;        // a long one
  std::size_t work_ = 0;               // besides what the painter counts
  GIFPainter painter_;
  std::shared_ptr<FrameBufferPool> pool_;
  std::vector<Coverage> coverage_;
  GIFChangedRows changes_;
  // What was under the current frame, if it has disposal 3 and no other buffer shows it.
  std::unique_ptr<std::uint32_t[]> saved_;
  std::size_t savedCapacity_ = 0;
  std::map<std::size_t, std::shared_ptr<PixelBuffer>>
      kept_;  // canvas before the frame of that index
};
