#include "platform/imageio/FrameBufferPool.h"

#include <utility>

std::shared_ptr<FrameBuffer> FrameBufferPool::take() {
  {
    const std::lock_guard lock(mutex_);
    if (!free_.empty()) {
      std::shared_ptr<FrameBuffer> buffer = std::move(free_.back());
      free_.pop_back();
      return buffer;
    }
  }
  std::shared_ptr<PixelBuffer> pixels = PixelBuffer::create(width_, height_);
  if (!pixels) {
    return nullptr;
  }
  auto buffer = std::make_shared<FrameBuffer>();
  buffer->pixels = std::move(pixels);
  buffer->pool = weak_from_this();
  return buffer;
}

std::shared_ptr<FrameBuffer> FrameBufferPool::takeCurrent() {
  current_->uses.store(0, std::memory_order_relaxed);
  return std::exchange(current_, nullptr);
}

bool FrameBufferPool::isCurrentWritable() const {
  // What the last borrower read, it has read.
  return current_ && current_->uses.load(std::memory_order_acquire) == 1;
}

std::shared_ptr<const PixelBuffer> FrameBufferPool::lendCurrent() {
  if (isCurrentWritable()) {
    current_->uses.store(2, std::memory_order_relaxed);  // nobody else changes it now
  } else {
    current_->uses.fetch_add(1, std::memory_order_relaxed);
  }
  return {current_->pixels.get(), [buffer = current_](const PixelBuffer*) {
            if (endUse(*buffer)) {
              if (const auto owner = buffer->pool.lock()) {
                owner->keepFree(buffer);
              }
            }
          }};
}

void FrameBufferPool::keepIn(std::shared_ptr<FrameBuffer>& place,
                             std::shared_ptr<FrameBuffer> buffer) {
  if (buffer == place) {
    return;
  }
  if (buffer) {
    buffer->uses.fetch_add(1, std::memory_order_relaxed);
  }
  const std::shared_ptr<FrameBuffer> last = std::exchange(place, std::move(buffer));
  if (last && endUse(*last)) {
    keepFree(last);
  }
}

bool FrameBufferPool::endUse(FrameBuffer& buffer) {
  return buffer.uses.fetch_sub(1, std::memory_order_acq_rel) == 1;
}

void FrameBufferPool::keepFree(const std::shared_ptr<FrameBuffer>& buffer) {
  const std::lock_guard lock(mutex_);
  if (free_.size() < kMaximumFree) {
    free_.push_back(buffer);
  }
}
