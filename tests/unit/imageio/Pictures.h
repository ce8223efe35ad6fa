#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/imageio/CGImageSource.h"
#include "tests/support/GIFBuilder.h"

/// Small pictures as text: one letter a pixel, R, G, B, W for the four colours of `colours`, k for
/// opaque black, a dot for transparent, a question mark for anything else; a slash between rows.
namespace pictures {

inline constexpr std::array<std::uint8_t, 12> colours{255, 0, 0,   0,   255, 0,
                                                      0,   0, 255, 255, 255, 255};
/// The index of W, which most tests take as the transparent one.
inline constexpr std::uint8_t white = 3;

inline GIFBuilder screen(unsigned width, unsigned height, std::string_view signature = "GIF89a") {
  return {width, height, colours, signature};
}

inline std::vector<std::uint8_t> indexes(std::string_view letters) {
  std::vector<std::uint8_t> result;
  for (const char letter : letters) {
    if (letter != '/') {
      result.push_back(static_cast<std::uint8_t>(std::string_view("RGBW").find(letter)));
    }
  }
  return result;
}

/// Where the picture goes; its size is that of the rows.
inline GIFBuilder::Image placed(unsigned left, unsigned top, std::string_view rows) {
  const std::size_t width = rows.find('/') == std::string_view::npos ? rows.size() : rows.find('/');
  return {.left = left,
          .top = top,
          .width = static_cast<unsigned>(width),
          .height = static_cast<unsigned>((rows.size() + 1) / (width + 1))};
}

inline void draw(GIFBuilder& gif, unsigned left, unsigned top, std::string_view rows) {
  gif.image(placed(left, top, rows), 2, indexes(rows));
}

inline std::string text(const std::shared_ptr<const CGImage>& image) {
  const std::shared_ptr<const PixelBuffer> pixels = image ? image->pixels() : nullptr;
  if (!pixels) {
    return "none";
  }
  std::string result;
  for (const std::uint32_t pixel : pixels->pixels()) {
    if (!result.empty() && (result.size() + 1) % (pixels->width() + 1) == 0) {
      result += '/';
    }
    switch (pixel) {
      case 0:
        result += '.';
        break;
      case 0xFF000000:
        result += 'k';
        break;
      case 0xFFFF0000:
        result += 'R';
        break;
      case 0xFF00FF00:
        result += 'G';
        break;
      case 0xFF0000FF:
        result += 'B';
        break;
      case 0xFFFFFFFF:
        result += 'W';
        break;
      default:
        result += '?';
        break;
    }
  }
  return result;
}

using Texts = std::vector<std::string>;

/// Every frame in order; "none" for one that cannot be decoded; empty if there is no image at all.
inline Texts frames(const CGImageSource::Data& data) {
  Texts result;
  if (const auto source = CGImageSource::createWithData(data)) {
    for (std::size_t i = 0; i < source->count(); ++i) {
      result.push_back(text(source->createImageAtIndex(i)));
    }
  }
  return result;
}

inline Texts frames(const GIFBuilder& gif) {
  return frames(gif.data());
}

/// Unclamped delays in seconds, -1 where the file has none.
inline std::vector<double> delays(const GIFBuilder& gif) {
  std::vector<double> result;
  const auto source = CGImageSource::createWithData(gif.data());
  for (std::size_t i = 0; source && i < source->count(); ++i) {
    result.push_back(source->copyPropertiesAtIndex(i)->gif.unclampedDelayTime.value_or(-1));
  }
  return result;
}

}  // namespace pictures
