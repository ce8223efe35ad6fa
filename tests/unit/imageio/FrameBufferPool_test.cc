#include "platform/imageio/FrameBufferPool.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace {

/// Makes a frame current and lends it.
std::shared_ptr<const PixelBuffer> show(FrameBufferPool& pool, std::size_t frame) {
  const std::shared_ptr<FrameBuffer> buffer = pool.take();
  buffer->frame = frame;
  pool.setCurrent(buffer);
  return pool.lendCurrent();
}

TEST(FrameBufferPool, AReturnedBufferIsTakenAgainWithItsContents) {
  const auto pool = std::make_shared<FrameBufferPool>(4, 4);
  auto loan = show(*pool, 1);
  const PixelBuffer* const pixels = loan.get();
  auto next = show(*pool, 2);
  loan.reset();
  const std::shared_ptr<FrameBuffer> again = pool->take();
  EXPECT_EQ(again->pixels.get(), pixels);
  EXPECT_EQ(again->frame, 1U);
}

TEST(FrameBufferPool, ALentBufferAndTheCurrentOneAreNotTaken) {
  const auto pool = std::make_shared<FrameBufferPool>(4, 4);
  const auto first = show(*pool, 1);
  auto second = show(*pool, 2);
  const PixelBuffer* const current = second.get();
  second.reset();
  for (int i = 0; i < 3; ++i) {
    const auto taken = pool->take();
    EXPECT_NE(taken->pixels.get(), first.get());
    EXPECT_NE(taken->pixels.get(), current);
  }
}

TEST(FrameBufferPool, TheCurrentBufferIsWritableWhenEveryLoanHasEnded) {
  const auto pool = std::make_shared<FrameBufferPool>(4, 4);
  EXPECT_FALSE(pool->isCurrentWritable());
  auto loan = show(*pool, 1);
  auto another = pool->lendCurrent();
  EXPECT_EQ(loan.get(), another.get());
  EXPECT_FALSE(pool->isCurrentWritable());
  loan.reset();
  EXPECT_FALSE(pool->isCurrentWritable());
  another.reset();
  EXPECT_TRUE(pool->isCurrentWritable());
}

TEST(FrameBufferPool, WhatIsUnderTheCurrentFrameIsKeptUntilAnotherTakesItsPlace) {
  const auto pool = std::make_shared<FrameBufferPool>(4, 4);
  auto loan = show(*pool, 1);
  pool->setUnder(pool->current());
  const PixelBuffer* const under = loan.get();
  EXPECT_FALSE(pool->isCurrentWritable());
  const auto next = show(*pool, 2);
  loan.reset();
  EXPECT_NE(pool->take()->pixels.get(), under);
  EXPECT_EQ(pool->under()->pixels.get(), under);
  pool->setUnder(nullptr);
  EXPECT_EQ(pool->take()->pixels.get(), under);
}

TEST(FrameBufferPool, DroppingManyFramesGivesAllButAFewBack) {
  const auto pool = std::make_shared<FrameBufferPool>(4, 4);
  std::vector<std::shared_ptr<const PixelBuffer>> loans;
  std::vector<std::weak_ptr<FrameBuffer>> buffers;
  for (std::size_t frame = 0; frame < 12; ++frame) {
    loans.push_back(show(*pool, frame));
    buffers.emplace_back(pool->current());
  }
  loans.clear();
  const auto alive = std::ranges::count_if(buffers, [](const auto& b) { return !b.expired(); });
  EXPECT_EQ(static_cast<std::size_t>(alive), FrameBufferPool::kMaximumFree + 1);
}

TEST(FrameBufferPool, ALoanMayOutliveThePool) {
  auto pool = std::make_shared<FrameBufferPool>(4, 4);
  const auto loan = show(*pool, 1);
  const std::weak_ptr<FrameBuffer> buffer = pool->current();
  pool.reset();
  EXPECT_FALSE(buffer.expired());
  EXPECT_EQ(loan->pixels().size(), 16U);
}

TEST(FrameBufferPool, ACanvasLargerThanTheMaximumHasNoBuffers) {
  const auto pool = std::make_shared<FrameBufferPool>(65535, 65535);
  EXPECT_EQ(pool->take(), nullptr);
}

}  // namespace
