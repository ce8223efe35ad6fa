#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <deque>
#include <memory>
#include <vector>

#include "platform/imageio/CGImageSource.h"

// Any bytes as a GIF: every frame in order, then the same frames by jumps while some are still
// held, and each must have the pixels that it had in order.

namespace {

// Keeps one run short: larger canvases get fewer frames, and of the largest only the first is
// decoded.
constexpr std::size_t maximumPixels = std::size_t{1} << 18;
constexpr std::size_t maximumFrames = 64;
constexpr std::size_t heldFrames = 3;

void require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

std::uint64_t mix(std::uint64_t state, std::uint64_t value) {
  state = (state ^ value) * 0x9E3779B97F4A7C15;
  return state ^ state >> 29;
}

std::shared_ptr<const PixelBuffer> pixelsOf(const CGImageSource& source, std::size_t index) {
  const std::shared_ptr<const CGImage> image = source.createImageAtIndex(index);
  return image ? image->pixels() : nullptr;
}

/// 0 for a frame that cannot be decoded.
std::uint64_t fingerprint(const std::shared_ptr<const PixelBuffer>& pixels) {
  if (!pixels) {
    return 0;
  }
  std::uint64_t state = 1;
  for (const std::uint32_t pixel : pixels->pixels()) {
    require(pixel == 0 || pixel >> 24 == 255);
    state = mix(state, pixel);
  }
  return state | 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const auto data = std::make_shared<const std::vector<std::uint8_t>>(bytes, bytes + size);
  const std::shared_ptr<CGImageSource> source = CGImageSource::createWithData(data);
  if (!source) {
    return 0;
  }
  const CGImageProperties properties = *source->copyPropertiesAtIndex(0);
  const std::size_t area = properties.pixelWidth * properties.pixelHeight;
  require(!source->createImageAtIndex(source->count()));
  require(!source->copyPropertiesAtIndex(source->count()));

  if (area > maximumPixels) {
    pixelsOf(*source, 0);
    return 0;
  }
  const std::size_t count = std::min({source->count(), maximumFrames, maximumPixels / area});

  std::vector<std::uint64_t> inOrder;
  for (std::size_t i = 0; i < count; ++i) {
    inOrder.push_back(fingerprint(pixelsOf(*source, i)));
  }

  const std::shared_ptr<CGImageSource> jumping = CGImageSource::createWithData(data);
  std::deque<std::shared_ptr<const PixelBuffer>> held;
  std::uint64_t random = mix(size, inOrder.back());
  for (std::size_t i = 0; i < 2 * count; ++i) {
    random = mix(random, i);
    const std::size_t index = (random >> 32) % count;
    // From time to time a few frames in order after the jump.
    for (std::size_t next = index; next < count && next <= index + (random & 3); ++next) {
      const std::shared_ptr<const PixelBuffer> pixels = pixelsOf(*jumping, next);
      require(fingerprint(pixels) == inOrder[next]);
      if ((random & 4) != 0) {
        held.push_back(pixels);
      }
      if (held.size() > heldFrames) {
        held.pop_front();
      }
    }
  }
  return 0;
}
