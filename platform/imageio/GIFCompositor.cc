#include "platform/imageio/GIFCompositor.h"

#include <algorithm>
#include <new>
#include <utility>

namespace {

// Beyond this many frames a buffer is not worth following; it is copied whole.
constexpr std::size_t kMaximumFollowedFrames = 64;
// A canvas of so few pixels is copied sooner than it is found out which ones.
constexpr std::size_t kCopiedWhole = 1024;

std::size_t keptSpacingFor(const GIFStructure& structure) {
  const std::size_t canvasBytes = structure.width() * structure.height() * sizeof(std::uint32_t);
  const std::size_t canvases = GIFCompositor::kMaximumKeptBytes / canvasBytes;
  if (canvases == 0) {
    return 0;
  }
  return std::max(GIFCompositor::kMinimumKeptSpacing, structure.frameCount() / (canvases + 1) + 1);
}

}  // namespace

GIFCompositor::GIFCompositor(std::shared_ptr<const std::vector<std::uint8_t>> data,
                             GIFStructure structure)
    : data_(std::move(data)),
      structure_(std::move(structure)),
      keptSpacing_(keptSpacingFor(structure_)),
      painter_(*data_, structure_),
      pool_(std::make_shared<FrameBufferPool>(structure_.width(), structure_.height())),
      changes_(structure_.width(), structure_.height()) {}

std::shared_ptr<const PixelBuffer> GIFCompositor::makePixels(std::size_t index) {
  if (index >= structure_.frameCount() || !structure_.isDecodable(index)) {
    return nullptr;
  }
  Lock lock = enter();
  if (compositeInTurn(index, lock) != Outcome::kDone) {
    pool_->setCurrent(nullptr);  // its disposal may have lost what it needs
    pool_->setUnder(nullptr);
    return nullptr;
  }
  return pool_->lendCurrent();
}

std::size_t GIFCompositor::work() {
  const Lock lock = enter();
  return work_ + painter_.decodedPixelCount();
}

GIFCompositor::Lock GIFCompositor::enter() {
  Lock lock(mutex_, std::try_to_lock);
  if (!lock) {
    ++waiting_;
    lock.lock();
    --waiting_;
    ++entered_;
    changed_.notify_all();
  }
  return lock;
}

/// Lets one of those that wait have the lock, if any does. Just to let go of it would not do: who
/// runs has it again before the other has woken up.
void GIFCompositor::giveWay(Lock& lock) {
  if (waiting_ > 0) {
    const std::size_t before = entered_;
    changed_.wait(lock, [&] { return entered_ != before; });
  }
}

/// Whether the lock must not be held for the whole way.
bool GIFCompositor::isLong(Start start, std::size_t index) const {
  std::size_t pixels = 0;
  for (std::size_t i = start.first; i < index && pixels <= kMaximumPixelsAtOnce; ++i) {
    pixels += structure_.pixelCount(i);
  }
  return pixels > kMaximumPixelsAtOnce;
}

/// While it lives, the one long jump is under way, if it is one.
class GIFCompositor::Turn {
 public:
  explicit Turn(GIFCompositor* compositor) : compositor_(compositor) {
    if (compositor_ != nullptr) {
      compositor_->isJumpUnderWay_ = true;
    }
  }
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;
  ~Turn() {
    if (compositor_ != nullptr) {
      compositor_->isJumpUnderWay_ = false;
      compositor_->changed_.notify_all();
    }
  }

 private:
  GIFCompositor* compositor_;
};

/// Makes the frame the current one. A long jump waits until no other is under way.
GIFCompositor::Outcome GIFCompositor::compositeInTurn(std::size_t index, Lock& lock) {
  std::size_t from = index;
  while (!pool_->current() || pool_->current()->frame != index) {
    if (coverage_.empty()) {
      coverage_.resize(structure_.frameCount(), Coverage::kUnknown);
    }
    const Start start = findStart(index, from);
    const bool isLongJump = start.first < index && isLong(start, index);
    if (isLongJump && isJumpUnderWay_) {
      changed_.wait(lock, [this] { return !isJumpUnderWay_; });
      continue;  // what is current may be another frame by now
    }
    const Turn turn(isLongJump ? this : nullptr);
    const Outcome outcome = composite(index, start, isLongJump ? &lock : nullptr);
    if (outcome != Outcome::kCoverageWasWrong) {
      return outcome;
    }
    from = start.first;  // which is known now not to be a start
    giveWay(lock);
  }
  return Outcome::kDone;
}

/// Whether nothing of the canvas is left to see under the frame, as far as is known.
bool GIFCompositor::coversAll(std::size_t index) const {
  return structure_.isDecodable(index) && !structure_.hasTransparency(index) &&
         structure_.coversCanvas(index) && coverage_[index] != Coverage::kPartial;
}

bool GIFCompositor::clearsAll(std::size_t index) const {
  return structure_.disposal(index) == GIFDisposal::kClear && structure_.isDecodable(index) &&
         structure_.coversCanvas(index);
}

/// Whether an empty canvas need not be cleared for the start's first frame, since that writes every
/// pixel.
bool GIFCompositor::replacesCanvas(Start start, std::size_t index) const {
  if (start.origin != Origin::kEmpty && start.origin != Origin::kNothingNeeded) {
    return false;
  }
  const GIFDisposal disposal = structure_.disposal(start.first);
  const bool isDrawn =
      disposal == GIFDisposal::kKeep || (start.first == index && disposal == GIFDisposal::kClear);
  return isDrawn && structure_.isDecodable(start.first) && structure_.coversCanvas(start.first) &&
         coverage_[start.first] != Coverage::kPartial;
}

/// The nearest one at or before `from`, when all between that and the frame are none.
GIFCompositor::Start GIFCompositor::findStart(std::size_t index, std::size_t from) {
  const std::size_t current = pool_->current() ? pool_->current()->frame : FrameBuffer::kNoFrame;
  // In place, what the data turns out not to give is right as it is; no need to rely on it.
  if (index > 0 && current == index - 1 && pool_->isCurrentWritable() && !clearsAll(current)) {
    return {Origin::kCurrentFrame, index};
  }
  for (std::size_t first = from;; --first) {
    const GIFDisposal disposal = structure_.disposal(first);
    const bool staysDrawn =
        first == index ? disposal != GIFDisposal::kRestorePrevious : disposal == GIFDisposal::kKeep;
    if (staysDrawn && coversAll(first)) {
      return {Origin::kNothingNeeded, first};
    }
    if (first == 0 || clearsAll(first - 1)) {
      return {Origin::kEmpty, first};
    }
    if (current == first - 1) {
      return {Origin::kCurrentFrame, first};
    }
    if (kept_.contains(first)) {
      return {Origin::kKeptCanvas, first};
    }
  }
}

/// Draws from the start on. With a lock, that is given up from time to time.
GIFCompositor::Outcome GIFCompositor::composite(std::size_t index, Start start, Lock* lock) {
  const bool isInPlace = pool_->isCurrentWritable();
  std::shared_ptr<FrameBuffer> taken = isInPlace ? nullptr : pool_->take();
  FrameBuffer* const target = isInPlace ? pool_->current().get() : taken.get();
  if (target == nullptr) {
    return Outcome::kNoMemory;
  }

  const bool replacesAll = replacesCanvas(start, index);
  const bool replacesRect = replacesClearedRect(start, index);
  Drawing drawing{.wanted = index,
                  .start = start,
                  .replacesFirst = replacesAll || replacesRect,
                  .target = target,
                  .before = bufferBefore(start, *target),
                  .drawn = nullptr};
  if (!replacesAll) {
    prepare(*target, start, replacesRect);
  }
  target->frame = FrameBuffer::kNoFrame;
  if (start.first < index && needsDrawnPixels(start, index)) {
    drawing.drawn = GIFDrawnPixels::create(structure_.width(), structure_.height(),
                                           start.origin == Origin::kEmpty);
    if (!drawing.drawn) {
      return Outcome::kNoMemory;
    }
  }
  if (lock != nullptr && isInPlace) {
    taken = pool_->takeCurrent();  // others are not to see it
  }
  std::size_t workAtEntry = work_ + painter_.decodedPixelCount();

  for (std::size_t i = start.first; i <= index; ++i) {
    if (i > start.first && i == lastKeepable(index)) {
      keepCanvas(i, *target->pixels);
    }
    if (!structure_.isDecodable(i)) {
      continue;
    }
    if (lock != nullptr &&
        work_ + painter_.decodedPixelCount() - workAtEntry > kMaximumPixelsAtOnce) {
      drawing.before.reset();
      giveWay(*lock);
      workAtEntry = work_ + painter_.decodedPixelCount();
    }
    if (const Outcome outcome = draw(i, drawing); outcome != Outcome::kDone) {
      return outcome;
    }
  }
  finish(drawing, std::move(taken));
  return Outcome::kDone;
}

/// Brings the canvas from before the frame to what the next one finds, or to what is shown while
/// the wanted one is.
GIFCompositor::Outcome GIFCompositor::draw(std::size_t index, Drawing& drawing) {
  const bool isWanted = index == drawing.wanted;
  const GIFDisposal disposal = structure_.disposal(index);
  PixelBuffer& pixels = *drawing.target->pixels;
  if (!isWanted && disposal != GIFDisposal::kKeep) {
    if (disposal == GIFDisposal::kClear) {
      work_ += drawing.drawn->clear(structure_.visibleRect(index), pixels);
      drawing.before.reset();
    }
    return Outcome::kDone;
  }
  if (!isWanted || disposal != GIFDisposal::kRestorePrevious) {
    drawing.before.reset();
  } else if (!drawing.before && !save(structure_.visibleRect(index), pixels)) {
    return Outcome::kNoMemory;
  }
  const bool isReplacing = drawing.replacesFirst && index == drawing.start.first;
  GIFPainter::Result result = paint(
      index, *drawing.target, isReplacing ? GIFPainter::Mode::kReplace : GIFPainter::Mode::kOver,
      drawing.drawn.get());
  if (isReplacing && result == GIFPainter::Result::kPartial) {
    if (drawing.start.origin == Origin::kNothingNeeded) {
      return Outcome::kCoverageWasWrong;
    }
    clearRect(structure_.visibleRect(index), pixels);
    result = paint(index, *drawing.target, GIFPainter::Mode::kOver, drawing.drawn.get());
  }
  return result == GIFPainter::Result::kNoMemory ? Outcome::kNoMemory : Outcome::kDone;
}

/// Makes what was drawn the current frame.
void GIFCompositor::finish(Drawing& drawing, std::shared_ptr<FrameBuffer> taken) {
  drawing.target->frame = drawing.wanted;
  if (drawing.before) {
    saved_.reset();
    savedCapacity_ = 0;
  }
  // First, since it may be what is current still.
  pool_->setUnder(std::move(drawing.before));
  if (taken) {
    pool_->setCurrent(std::move(taken));
  }
}

/// Whether anything on the way is cleared.
bool GIFCompositor::needsDrawnPixels(Start start, std::size_t index) const {
  for (std::size_t i = start.first; i < index; ++i) {
    if (structure_.disposal(i) == GIFDisposal::kClear) {
      return true;
    }
  }
  return false;
}

/// Whether the frame is all that will be seen where the one before it was cleared.
bool GIFCompositor::replacesClearedRect(Start start, std::size_t index) const {
  if (start.origin != Origin::kCurrentFrame || start.first != index ||
      structure_.disposal(pool_->current()->frame) != GIFDisposal::kClear) {
    return false;
  }
  const std::size_t current = pool_->current()->frame;
  return structure_.disposal(index) != GIFDisposal::kRestorePrevious &&
         coverage_[index] != Coverage::kPartial &&
         structure_.visibleRect(current).contains(structure_.visibleRect(index));
}

/// A buffer besides the target that shows the canvas before the start's first frame; may be null.
std::shared_ptr<FrameBuffer> GIFCompositor::bufferBefore(Start start,
                                                         const FrameBuffer& target) const {
  if (start.origin != Origin::kCurrentFrame) {
    return nullptr;
  }
  switch (structure_.disposal(pool_->current()->frame)) {
    case GIFDisposal::kKeep:
      return &target == pool_->current().get() ? nullptr : pool_->current();
    case GIFDisposal::kRestorePrevious:
      return pool_->under();
    default:
      return nullptr;
  }
}

/// Brings the target to the canvas before the start's first frame; where that frame replaces its
/// rectangle, outside of it.
void GIFCompositor::prepare(FrameBuffer& target, Start start, bool replacesRect) {
  const std::size_t pixelCount = structure_.width() * structure_.height();
  switch (start.origin) {
    case Origin::kNothingNeeded:
      break;
    case Origin::kEmpty:
      std::fill_n(target.pixels->pixels().data(), pixelCount, 0);
      work_ += pixelCount;
      break;
    case Origin::kKeptCanvas:
      std::copy_n(kept_.at(start.first)->pixels().data(), pixelCount,
                  target.pixels->pixels().data());
      work_ += pixelCount;
      break;
    case Origin::kCurrentFrame:
      prepareFromCurrent(target, start.first, replacesRect);
      break;
  }
}

void GIFCompositor::prepareFromCurrent(FrameBuffer& target, std::size_t first, bool replacesRect) {
  const FrameBuffer& current = *pool_->current();
  const GIFDisposal disposal = structure_.disposal(current.frame);
  if (disposal == GIFDisposal::kKeep && &target == &current) {
    return;
  }
  const GIFRect rect = structure_.visibleRect(current.frame);
  if (disposal == GIFDisposal::kRestorePrevious && pool_->under()) {
    findChanges(target, *pool_->under());
    work_ += changes_.copy(*pool_->under()->pixels, *target.pixels);
    return;
  }
  if (&target != &current) {
    findChanges(target, current);
    if (disposal != GIFDisposal::kKeep) {
      changes_.subtract(rect);
    }
    work_ += changes_.copy(*current.pixels, *target.pixels);
  }
  if (disposal == GIFDisposal::kRestorePrevious) {
    restore(rect, *target.pixels);
  } else if (disposal == GIFDisposal::kClear) {
    clearAround(replacesRect ? structure_.visibleRect(first) : GIFRect{}, rect, *target.pixels);
  }
}

/// Where the target, in which a near frame may be left, differs from another buffer: what the
/// frames between have drawn, and the earlier of the two where it is disposed of.
void GIFCompositor::findChanges(const FrameBuffer& target, const FrameBuffer& from) {
  changes_.clear();
  const auto [first, last] = std::minmax(target.frame, from.frame);
  if (target.frame == FrameBuffer::kNoFrame || last - first > kMaximumFollowedFrames ||
      structure_.width() * structure_.height() <= kCopiedWhole) {
    changes_.addAll();
    return;
  }
  for (std::size_t i = first; i <= last; ++i) {
    const GIFDisposal disposal = structure_.disposal(i);
    if ((i != first || disposal != GIFDisposal::kKeep) &&
        (i == first || i == last || disposal != GIFDisposal::kRestorePrevious)) {
      changes_.add(structure_.visibleRect(i));
    }
  }
}

GIFPainter::Result GIFCompositor::paint(std::size_t index, FrameBuffer& target,
                                        GIFPainter::Mode mode, GIFDrawnPixels* drawn) {
  const GIFPainter::Result result = painter_.paint(index, target.pixels->pixels(), mode, drawn);
  if (result != GIFPainter::Result::kNoMemory) {
    coverage_[index] =
        result == GIFPainter::Result::kComplete ? Coverage::kComplete : Coverage::kPartial;
  }
  return result;
}

void GIFCompositor::clearRect(const GIFRect& rect, PixelBuffer& pixels) {
  work_ += rect.area();
  std::uint32_t* to = pixels.pixels().data() + rect.top * structure_.width() + rect.left;
  if (rect.width == structure_.width()) {
    std::fill_n(to, rect.area(), 0);
    return;
  }
  for (std::size_t y = 0; y < rect.height; ++y, to += structure_.width()) {
    std::fill_n(to, rect.width, 0);
  }
}

/// Clears a rectangle but for what of it lies in `inner`, which is in it or of no area.
void GIFCompositor::clearAround(const GIFRect& inner, const GIFRect& rect, PixelBuffer& pixels) {
  if (inner.area() == 0) {
    clearRect(rect, pixels);
    return;
  }
  const std::size_t above = inner.top - rect.top;
  const std::size_t below = inner.top + inner.height;
  const std::size_t right = inner.left + inner.width;
  clearRect({rect.left, rect.top, rect.width, above}, pixels);
  clearRect({rect.left, inner.top, inner.left - rect.left, inner.height}, pixels);
  clearRect({right, inner.top, rect.left + rect.width - right, inner.height}, pixels);
  clearRect({rect.left, below, rect.width, rect.top + rect.height - below}, pixels);
}

/// Remembers what a frame with disposal 3 is about to be drawn over.
bool GIFCompositor::save(const GIFRect& rect, const PixelBuffer& pixels) {
  if (rect.area() > savedCapacity_) {
    savedCapacity_ = 0;
    saved_.reset();
    saved_.reset(new (std::nothrow) std::uint32_t[rect.area()]);
    if (!saved_) {
      return false;
    }
    savedCapacity_ = rect.area();
  }
  work_ += rect.area();
  const std::uint32_t* from = pixels.pixels().data() + rect.top * structure_.width() + rect.left;
  std::uint32_t* to = saved_.get();
  for (std::size_t y = 0; y < rect.height; ++y) {
    std::copy_n(from, rect.width, to);
    from += structure_.width();
    to += rect.width;
  }
  return true;
}

/// Brings back what was remembered.
void GIFCompositor::restore(const GIFRect& rect, PixelBuffer& pixels) {
  work_ += rect.area();
  const std::uint32_t* from = saved_.get();
  std::uint32_t* to = pixels.pixels().data() + rect.top * structure_.width() + rect.left;
  for (std::size_t y = 0; y < rect.height; ++y) {
    std::copy_n(from, rect.width, to);
    from += rect.width;
    to += structure_.width();
  }
}

/// The last place on the way to a frame where a canvas is kept; 0 for none.
std::size_t GIFCompositor::lastKeepable(std::size_t index) const {
  return keptSpacing_ == 0 ? 0 : index - index % keptSpacing_;
}

void GIFCompositor::keepCanvas(std::size_t index, const PixelBuffer& pixels) {
  std::shared_ptr<PixelBuffer> canvas =
      PixelBuffer::create(structure_.width(), structure_.height());
  if (canvas) {
    std::copy_n(pixels.pixels().data(), pixels.pixels().size(), canvas->pixels().data());
    kept_.emplace(index, std::move(canvas));
    work_ += pixels.pixels().size();
  }
}
