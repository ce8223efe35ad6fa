#include "tests/support/AllocationMeter.h"

#include <atomic>
#include <cstdlib>
#include <limits>
#include <malloc.h>
#include <new>

namespace {

std::atomic<std::ptrdiff_t> current{0};
std::atomic<std::ptrdiff_t> highest{0};
std::atomic<std::size_t> sum{0};
std::atomic<std::size_t> greatest{std::numeric_limits<std::size_t>::max()};

void* takeOrNull(std::size_t size) noexcept {
  if (size > greatest) {
    return nullptr;
  }
  void* block = std::malloc(size == 0 ? 1 : size);
  if (!block) {
    return nullptr;
  }
  const auto taken = static_cast<std::ptrdiff_t>(malloc_usable_size(block));
  const auto now = current.fetch_add(taken) + taken;
  sum += static_cast<std::size_t>(taken);
  auto before = highest.load();
  while (now > before && !highest.compare_exchange_weak(before, now)) {
  }
  return block;
}

void* take(std::size_t size) {
  void* block = takeOrNull(size);
  if (!block) {
    throw std::bad_alloc();
  }
  return block;
}

void give(void* block) noexcept {
  if (block) {
    current.fetch_sub(static_cast<std::ptrdiff_t>(malloc_usable_size(block)));
    std::free(block);
  }
}

}  // namespace

void allocationmeter::reset() {
  current = 0;
  highest = 0;
  sum = 0;
}

std::size_t allocationmeter::peak() {
  return static_cast<std::size_t>(highest.load());
}

std::size_t allocationmeter::total() {
  return sum.load();
}

allocationmeter::Limit::Limit(std::size_t bytes) {
  greatest = bytes;
}

allocationmeter::Limit::~Limit() {
  greatest = std::numeric_limits<std::size_t>::max();
}

void* operator new(std::size_t size) {
  return take(size);
}
void* operator new[](std::size_t size) {
  return take(size);
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return takeOrNull(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return takeOrNull(size);
}
void operator delete(void* block) noexcept {
  give(block);
}
void operator delete[](void* block) noexcept {
  give(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
  give(block);
}
void operator delete[](void* block, std::size_t /*size*/) noexcept {
  give(block);
}
