#include "platform/imageio/GIFCompositor.h"

#include <algorithm>
#include <new>
#include <utility>

namespace {

// Beyond this many frames a buffer is not worth following; it is copied whole.
constexpr std::size_t maximumFollowedFrames = 64;

std::size_t keptSpacingFor(const GIFStructure& structure) {
  const std::size_t canvasBytes = structure.width * structure.height * sizeof(std::uint32_t);
  const std::size_t canvases = GIFCompositor::maximumKeptBytes / canvasBytes;
  if (canvases == 0) {
    return 0;
  }
  return std::max(GIFCompositor::minimumKeptSpacing, structure.frames.size() / (canvases + 1) + 1);
}

}  // namespace

GIFCompositor::GIFCompositor(std::shared_ptr<const std::vector<std::uint8_t>> data,
                             GIFStructure structure)
    : data_(std::move(data)),
      structure_(std::move(structure)),
      keptSpacing_(keptSpacingFor(structure_)),
      painter_(*data_, structure_),
      pool_(std::make_shared<FrameBufferPool>(structure_.width, structure_.height)),
      coverage_(structure_.frames.size(), Coverage::unknown) {}

std::shared_ptr<const PixelBuffer> GIFCompositor::compositeFrame(std::size_t index) {
  const std::lock_guard lock(mutex_);
  if (index >= structure_.frames.size() || !structure_.frames[index].isDecodable) {
    return nullptr;
  }
  if (!pool_->current() || pool_->current()->frame != index) {
    Outcome outcome = composite(index, true);
    if (outcome == Outcome::coverageWasWrong) {
      outcome = composite(index, false);
    }
    if (outcome != Outcome::done) {
      pool_->setCurrent(nullptr);  // its disposal may have lost what it needs
      return nullptr;
    }
  }
  return pool_->lendCurrent();
}

/// Whether nothing of the canvas is left to see under the frame.
bool GIFCompositor::coversAll(std::size_t index, bool trustUnknown) const {
  const GIFFrame& frame = structure_.frames[index];
  return frame.isDecodable && !frame.hasTransparency &&
         frame.coversCanvas(structure_.width, structure_.height) &&
         (coverage_[index] == Coverage::complete ||
          (trustUnknown && coverage_[index] == Coverage::unknown));
}

bool GIFCompositor::clearsAll(std::size_t index) const {
  const GIFFrame& frame = structure_.frames[index];
  return frame.isDecodable && frame.disposal == GIFDisposal::clear &&
         frame.coversCanvas(structure_.width, structure_.height);
}

GIFRect GIFCompositor::rectOf(std::size_t index) const {
  return structure_.frames[index].visibleRect(structure_.width, structure_.height);
}

GIFCompositor::Start GIFCompositor::findStart(std::size_t index, bool trustUnknown) {
  const std::size_t current = pool_->current() ? pool_->current()->frame : FrameBuffer::noFrame;
  // In place, what the data turns out not to give is right as it is; no need to rely on it.
  if (index > 0 && current == index - 1 && pool_->isCurrentWritable() && !clearsAll(current)) {
    return {Origin::currentFrame, index};
  }
  for (std::size_t first = index;; --first) {
    const GIFDisposal disposal = structure_.frames[first].disposal;
    const bool staysDrawn =
        first == index ? disposal != GIFDisposal::restorePrevious : disposal == GIFDisposal::keep;
    if (staysDrawn && coversAll(first, trustUnknown)) {
      return {Origin::nothingNeeded, first};
    }
    if (first == 0 || clearsAll(first - 1)) {
      return {Origin::empty, first};
    }
    if (current == first - 1) {
      return {Origin::currentFrame, first};
    }
    if (kept_.contains(first)) {
      return {Origin::keptCanvas, first};
    }
  }
}

GIFCompositor::Outcome GIFCompositor::composite(std::size_t index, bool trustUnknown) {
  const Start start = findStart(index, trustUnknown);
  const std::shared_ptr<FrameBuffer> target =
      pool_->isCurrentWritable() ? pool_->current() : pool_->take();
  if (!target) {
    return Outcome::noMemory;
  }

  // An empty canvas need not be cleared under a frame that then writes every pixel.
  const GIFFrame& firstFrame = structure_.frames[start.first];
  const bool replaces = (start.origin == Origin::empty || start.origin == Origin::nothingNeeded) &&
                        firstFrame.isDecodable &&
                        firstFrame.coversCanvas(structure_.width, structure_.height) &&
                        (firstFrame.disposal == GIFDisposal::keep ||
                         (start.first == index && firstFrame.disposal == GIFDisposal::clear));
  if (!replaces) {
    prepare(*target, start);
  }
  target->frame = FrameBuffer::noFrame;

  for (std::size_t i = start.first; i <= index; ++i) {
    if (i > start.first && i == lastKeepable(index)) {
      keepCanvas(i, *target->pixels);
    }
    const GIFFrame& frame = structure_.frames[i];
    if (!frame.isDecodable) {
      continue;
    }
    if (i < index && frame.disposal != GIFDisposal::keep) {
      if (frame.disposal == GIFDisposal::clear) {
        clearRect(rectOf(i), *target->pixels);
      }
      continue;
    }
    if (frame.disposal == GIFDisposal::restorePrevious && !save(rectOf(i), *target->pixels)) {
      return Outcome::noMemory;
    }
    const bool isReplacing = replaces && i == start.first;
    GIFPainter::Result result =
        paint(i, *target, isReplacing ? GIFPainter::Mode::replace : GIFPainter::Mode::over);
    if (isReplacing && result == GIFPainter::Result::partial) {
      if (start.origin == Origin::nothingNeeded) {
        return Outcome::coverageWasWrong;
      }
      std::ranges::fill(target->pixels->pixels(), 0);
      result = paint(i, *target, GIFPainter::Mode::over);
    }
    if (result == GIFPainter::Result::noMemory) {
      return Outcome::noMemory;
    }
  }
  target->frame = index;
  pool_->setCurrent(target);
  return Outcome::done;
}

/// Brings the target to the canvas before the start's first frame.
void GIFCompositor::prepare(FrameBuffer& target, Start start) {
  switch (start.origin) {
    case Origin::nothingNeeded:
      break;
    case Origin::empty:
      std::ranges::fill(target.pixels->pixels(), 0);
      break;
    case Origin::keptCanvas:
      std::ranges::copy(std::as_const(*kept_.at(start.first)).pixels(),
                        target.pixels->pixels().begin());
      break;
    case Origin::currentFrame:
      if (&target != pool_->current().get()) {
        copyCurrentTo(target);
      }
      disposeOfCurrent(target);
      break;
  }
}

/// A target that shows a near frame differs from the current one only where the frames between
/// draw.
void GIFCompositor::copyCurrentTo(FrameBuffer& target) const {
  const FrameBuffer& current = *pool_->current();
  if (target.frame != FrameBuffer::noFrame) {
    const auto [from, to] = std::minmax(target.frame, current.frame);
    if (to - from <= maximumFollowedFrames) {
      std::size_t area = 0;
      for (std::size_t i = from; i <= to; ++i) {
        area += rectOf(i).area();
      }
      if (area < structure_.width * structure_.height) {
        for (std::size_t i = from; i <= to; ++i) {
          copyRect(rectOf(i), *current.pixels, *target.pixels);
        }
        return;
      }
    }
  }
  std::ranges::copy(std::as_const(*current.pixels).pixels(), target.pixels->pixels().begin());
}

void GIFCompositor::disposeOfCurrent(FrameBuffer& target) const {
  const std::size_t index = pool_->current()->frame;
  const GIFRect rect = rectOf(index);
  switch (structure_.frames[index].disposal) {
    case GIFDisposal::keep:
      break;
    case GIFDisposal::clear:
      clearRect(rect, *target.pixels);
      break;
    case GIFDisposal::restorePrevious: {
      const std::uint32_t* from = saved_.get();
      std::uint32_t* to = target.pixels->pixels().data() + rect.top * structure_.width + rect.left;
      for (std::size_t y = 0; y < rect.height; ++y) {
        std::copy_n(from, rect.width, to);
        from += rect.width;
        to += structure_.width;
      }
      break;
    }
  }
}

GIFPainter::Result GIFCompositor::paint(std::size_t index, FrameBuffer& target,
                                        GIFPainter::Mode mode) {
  const GIFPainter::Result result =
      painter_.paint(structure_.frames[index], target.pixels->pixels(), mode);
  if (result != GIFPainter::Result::noMemory) {
    coverage_[index] =
        result == GIFPainter::Result::complete ? Coverage::complete : Coverage::partial;
  }
  return result;
}

void GIFCompositor::copyRect(const GIFRect& rect, const PixelBuffer& from, PixelBuffer& to) const {
  std::size_t at = rect.top * structure_.width + rect.left;
  for (std::size_t y = 0; y < rect.height; ++y, at += structure_.width) {
    std::copy_n(from.pixels().data() + at, rect.width, to.pixels().data() + at);
  }
}

void GIFCompositor::clearRect(const GIFRect& rect, PixelBuffer& pixels) const {
  std::size_t at = rect.top * structure_.width + rect.left;
  for (std::size_t y = 0; y < rect.height; ++y, at += structure_.width) {
    std::fill_n(pixels.pixels().data() + at, rect.width, 0);
  }
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
  const std::uint32_t* from = pixels.pixels().data() + rect.top * structure_.width + rect.left;
  std::uint32_t* to = saved_.get();
  for (std::size_t y = 0; y < rect.height; ++y) {
    std::copy_n(from, rect.width, to);
    from += structure_.width;
    to += rect.width;
  }
  return true;
}

/// The last place on the way to a frame where a canvas is kept; 0 for none.
std::size_t GIFCompositor::lastKeepable(std::size_t index) const {
  return keptSpacing_ == 0 ? 0 : index - index % keptSpacing_;
}

void GIFCompositor::keepCanvas(std::size_t index, const PixelBuffer& pixels) {
  std::shared_ptr<PixelBuffer> canvas = PixelBuffer::create(structure_.width, structure_.height);
  if (canvas) {
    std::ranges::copy(pixels.pixels(), canvas->pixels().begin());
    kept_.emplace(index, std::move(canvas));
  }
}
