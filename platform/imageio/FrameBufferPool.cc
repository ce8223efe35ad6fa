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
  return buffer;
}

void FrameBufferPool::setCurrent(std::shared_ptr<FrameBuffer> buffer) {
  const std::lock_guard lock(mutex_);
  if (buffer == current_) {
    return;
  }
  std::shared_ptr<FrameBuffer> last = std::exchange(current_, std::move(buffer));
  if (last && last->loans == 0) {
    keepFree(std::move(last));
  }
}

bool FrameBufferPool::isCurrentWritable() {
  const std::lock_guard lock(mutex_);
  return current_ && current_->loans == 0;
}

std::shared_ptr<const PixelBuffer> FrameBufferPool::lendCurrent() {
  const std::lock_guard lock(mutex_);
  ++current_->loans;
  return {current_->pixels.get(), [pool = weak_from_this(), buffer = current_](const PixelBuffer*) {
            if (const auto owner = pool.lock()) {
              owner->endLoan(buffer);
            }
          }};
}

void FrameBufferPool::endLoan(const std::shared_ptr<FrameBuffer>& buffer) {
  const std::lock_guard lock(mutex_);
  if (--buffer->loans == 0 && buffer != current_) {
    keepFree(buffer);
  }
}

void FrameBufferPool::keepFree(std::shared_ptr<FrameBuffer> buffer) {
  if (free_.size() < maximumFree) {
    free_.push_back(std::move(buffer));
  }
}
