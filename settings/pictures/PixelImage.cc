#include "settings/pictures/PixelImage.h"

#include <algorithm>
#include <utility>

#include "platform/coregraphics/PixelBuffer.h"

namespace {

// What is known to be opaque is drawn without a look at what is below it.
bool isOpaque(const PixelBuffer& pixels) {
  constexpr std::uint32_t kAlpha = 0xFF000000;
  return std::ranges::all_of(pixels.pixels(),
                             [](std::uint32_t pixel) { return (pixel & kAlpha) == kAlpha; });
}

}  // namespace

QImage pixelImage(std::shared_ptr<const PixelBuffer> pixels) {
  if (!pixels) {
    return {};
  }
  const auto format =
      isOpaque(*pixels) ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied;
  const auto* bytes = reinterpret_cast<const uchar*>(pixels->pixels().data());
  const auto width = static_cast<int>(pixels->width());
  const auto height = static_cast<int>(pixels->height());
  const auto bytesPerRow = static_cast<qsizetype>(pixels->bytesPerRow());
  using Owner = std::shared_ptr<const PixelBuffer>;
  // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the toolkit hands the owner back at the end
  auto* owner = new Owner(std::move(pixels));
  return {bytes,       width,  height,
          bytesPerRow, format, [](void* kept) { delete static_cast<Owner*>(kept); },
          owner};
}
