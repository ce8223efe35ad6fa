#include "bench/gif/Animations.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "tests/support/GIFBuilder.h"

namespace {

constexpr std::uint8_t transparent = 255;

class Random {
 public:
  explicit Random(std::uint32_t seed) : state_(seed) {}
  std::uint32_t below(std::uint32_t limit) {
    state_ = state_ * 1664525 + 1013904223;
    return static_cast<std::uint32_t>((std::uint64_t{state_} * limit) >> 32);
  }

 private:
  std::uint32_t state_;
};

std::array<std::uint8_t, 768> shades() {
  std::array<std::uint8_t, 768> colours{};
  for (std::size_t i = 0; i < colours.size(); ++i) {
    colours[i] = static_cast<std::uint8_t>(i / 3 * (3 + i % 3) / 5);
  }
  return colours;
}

struct Screen {
  unsigned width;
  unsigned height;
  std::vector<std::uint8_t> pixels;

  Screen(unsigned w, unsigned h) : width(w), height(h), pixels(std::size_t{w} * h, 20) {}

  void fill(unsigned left, unsigned top, unsigned w, unsigned h, std::uint8_t colour) {
    for (unsigned y = top; y < std::min(top + h, height); ++y) {
      for (unsigned x = left; x < std::min(left + w, width); ++x) {
        pixels[std::size_t{y} * width + x] = colour;
      }
    }
  }

  /// Strokes with softened edges, as small text is.
  void write(unsigned left, unsigned top, unsigned letters, Random& random) {
    for (unsigned i = 0; i < letters; ++i) {
      for (unsigned stroke = 0; stroke < 4; ++stroke) {
        const bool isUpright = random.below(2) == 0;
        const unsigned x = left + i * 9 + random.below(6);
        const unsigned y = top + random.below(10);
        fill(x, y, isUpright ? 2 : 6, isUpright ? 8 : 2, static_cast<std::uint8_t>(120));
        fill(x, y, 1, 1, static_cast<std::uint8_t>(80 + random.below(60)));
      }
    }
  }
};

/// What changed, with everything else transparent, as small as it can be.
void addDifference(GIFBuilder& gif, const Screen& before, const Screen& after, unsigned delay) {
  unsigned left = after.width;
  unsigned top = after.height;
  unsigned right = 0;
  unsigned bottom = 0;
  for (unsigned y = 0; y < after.height; ++y) {
    for (unsigned x = 0; x < after.width; ++x) {
      const std::size_t at = std::size_t{y} * after.width + x;
      if (before.pixels[at] != after.pixels[at]) {
        left = std::min(left, x);
        right = std::max(right, x + 1);
        top = std::min(top, y);
        bottom = std::max(bottom, y + 1);
      }
    }
  }
  if (right == 0) {
    left = top = 0;
    right = bottom = 1;
  }
  std::vector<std::uint8_t> indexes;
  for (unsigned y = top; y < bottom; ++y) {
    for (unsigned x = left; x < right; ++x) {
      const std::size_t at = std::size_t{y} * after.width + x;
      indexes.push_back(before.pixels[at] == after.pixels[at] ? transparent : after.pixels[at]);
    }
  }
  gif.control({.disposal = 1, .delay = delay, .transparentIndex = transparent});
  gif.image({.left = left, .top = top, .width = right - left, .height = bottom - top}, 8, indexes);
}

}  // namespace

namespace animations {

Data interface(unsigned width, unsigned height, unsigned frames, Disposal disposal) {
  Random random(width);
  Screen screen(width, height);
  const unsigned keyWidth = width / 4;
  const unsigned keyHeight = height / 7;
  const auto keyLeft = [&](unsigned key) { return width / 16 + key % 3 * (keyWidth + width / 16); };
  const auto keyTop = [&](unsigned key) {
    return height / 4 + key / 3 * (keyHeight + height / 30);
  };
  const auto drawKey = [&](unsigned key, std::uint8_t colour) {
    Random letters(key);
    screen.fill(keyLeft(key), keyTop(key), keyWidth, keyHeight, colour);
    screen.write(keyLeft(key) + keyWidth / 3, keyTop(key) + keyHeight / 3, 4, letters);
  };
  for (unsigned y = 0; y < height / 6; ++y) {
    screen.fill(0, y, width, 1, static_cast<std::uint8_t>(60 - y % 64 / 2));  // a shaded title bar
  }
  screen.write(20, 20, width / 12, random);
  for (unsigned key = 0; key < 12; ++key) {
    drawKey(key, 40);
  }
  const auto colours = shades();
  GIFBuilder gif(width, height, colours);
  gif.control({.disposal = 1, .delay = 4, .transparentIndex = {}});
  gif.image({.width = width, .height = height}, 8, screen.pixels);
  for (unsigned frame = 1; frame < frames; ++frame) {
    const Screen before = screen;
    // A key lights up in three steps and goes dark again; then a digit is written.
    const unsigned key = frame / 5 * 7 % 12;
    constexpr std::array<std::uint8_t, 5> glow{70, 100, 130, 90, 40};
    drawKey(key, glow[frame % 5]);
    if (frame % 5 == 4) {
      screen.write(width / 4 + frame, height / 6 + 8, 1, random);
    }
    if (disposal == Disposal::keep) {
      addDifference(gif, before, screen, 4);
    } else {
      gif.control({.disposal = static_cast<unsigned>(disposal), .delay = 4});
      gif.image({.width = width, .height = height}, 8, screen.pixels);
    }
  }
  return gif.trailer().data();
}

Data sheet(unsigned width, unsigned height, unsigned frames, Disposal disposal) {
  const bool isAlone = disposal == Disposal::clear;
  Screen page(width, height);
  Random marks(width);
  for (unsigned line = 0; line + 40 < height; line += 40) {
    page.fill(0, line, width, 1, 90);
    page.write(20, line + 10, width / 12, marks);
  }
  const auto colours = shades();
  GIFBuilder gif(width, height, colours);
  const auto addWhole = [&](const std::vector<std::uint8_t>& indexes, Disposal after) {
    gif.control(
        {.disposal = static_cast<unsigned>(after), .delay = 4, .transparentIndex = transparent});
    gif.image({.width = width, .height = height}, 8, indexes);
  };
  if (!isAlone) {
    addWhole(page.pixels, Disposal::keep);
  }
  for (unsigned frame = isAlone ? 0 : 1; frame < frames; ++frame) {
    const unsigned top = height - height * 3 / 4 * (frame + 1) / frames;
    const unsigned left = width / 40;
    const unsigned sheetWidth = width - 2 * left;
    Screen screen(width, height);
    std::ranges::fill(screen.pixels, transparent);
    screen.fill(left, top, sheetWidth, height - top, 40);
    Random letters(7);
    for (unsigned line = top + 20; line + 30 < height; line += 30) {
      screen.write(left + 20, line, sheetWidth / 14, letters);
    }
    if (isAlone) {
      addWhole(screen.pixels, disposal);
      continue;
    }
    std::vector<std::uint8_t> indexes;
    for (unsigned y = top; y < height; ++y) {
      const auto row = screen.pixels.begin() + static_cast<std::ptrdiff_t>(y) * width + left;
      indexes.insert(indexes.end(), row, row + sheetWidth);
    }
    gif.control(
        {.disposal = static_cast<unsigned>(disposal), .delay = 4, .transparentIndex = transparent});
    gif.image({.left = left, .top = top, .width = sheetWidth, .height = height - top}, 8, indexes);
  }
  return gif.trailer().data();
}

Data photograph(unsigned width, unsigned height, unsigned frames) {
  Random random(1);
  const auto colours = shades();
  GIFBuilder gif(width, height, colours);
  for (unsigned frame = 0; frame < frames; ++frame) {
    std::vector<std::uint8_t> indexes;
    for (unsigned y = 0; y < height; ++y) {
      for (unsigned x = 0; x < width; ++x) {
        const double shade = 110 + 60 * std::sin((x + 3.0 * frame) / 37) + 50 * std::cos(y / 29.0);
        indexes.push_back(static_cast<std::uint8_t>(shade + random.below(9)));
      }
    }
    gif.control({.disposal = 1, .delay = 4, .transparentIndex = {}});
    gif.image({.width = width, .height = height}, 8, indexes);
  }
  return gif.trailer().data();
}

Data tiny(unsigned frames) {
  Random random(2);
  const auto colours = shades();
  GIFBuilder gif(16, 16, colours);
  Screen screen(16, 16);
  gif.control({.disposal = 1, .delay = 2, .transparentIndex = {}});
  gif.image({.width = 16, .height = 16}, 8, screen.pixels);
  for (unsigned frame = 1; frame < frames; ++frame) {
    const Screen before = screen;
    screen.fill(random.below(12), random.below(12), 4, 4,
                static_cast<std::uint8_t>(30 + random.below(200)));
    addDifference(gif, before, screen, 2);
  }
  return gif.trailer().data();
}

}  // namespace animations
