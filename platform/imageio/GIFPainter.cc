#include "platform/imageio/GIFPainter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace {

constexpr std::uint32_t kOpaqueBlack = 0xFF000000;

// Indexes that are decoded before they are turned into pixels: few enough to be in the fastest
// cache still.
constexpr std::size_t kBatch = std::size_t{16} * 1024;

/// Flat areas are common, so eight pixels of one colour are written as such.
void paintOpaque(std::uint32_t* to, const std::uint8_t* indexes, std::size_t count,
                 const std::uint32_t* palette) {
  std::size_t i = 0;
  for (; i + 8 <= count; i += 8) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, indexes + i, sizeof eight);
    if (eight == std::rotl(eight, 8)) {
      std::fill_n(to + i, 8, palette[eight & 255]);
      continue;
    }
    for (std::size_t j = i; j < i + 8; ++j) {
      to[j] = palette[indexes[j]];
    }
  }
  for (; i < count; ++i) {
    to[i] = palette[indexes[i]];
  }
}

/// Transparent pixels come in runs, so eight are tested at once.
void paintOver(std::uint32_t* to, const std::uint8_t* indexes, std::size_t count,
               const std::uint32_t* palette, std::uint8_t transparentIndex) {
  constexpr std::uint64_t kEveryByte = 0x0101010101010101;
  const std::uint64_t transparent = kEveryByte * transparentIndex;
  std::size_t i = 0;
  for (; i + 8 <= count; i += 8) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, indexes + i, sizeof eight);
    eight ^= transparent;
    if (eight == 0) {
      continue;
    }
    const bool anyTransparent = ((eight - kEveryByte) & ~eight & (kEveryByte << 7)) != 0;
    if (!anyTransparent) {
      paintOpaque(to + i, indexes + i, 8, palette);
      continue;
    }
    for (std::size_t j = i; j < i + 8; ++j) {
      to[j] = indexes[j] == transparentIndex ? to[j] : palette[indexes[j]];
    }
  }
  for (; i < count; ++i) {
    if (indexes[i] != transparentIndex) {
      to[i] = palette[indexes[i]];
    }
  }
}

/// The order in which the rows of an image are stored.
class RowOrder {
 public:
  RowOrder(std::size_t height, bool isInterlaced)
      : height_(height), pass_(isInterlaced ? 0 : kStraight) {}

  std::size_t row() const { return row_; }

  void advance() {
    row_ += kSteps[pass_];
    while (row_ >= height_ && pass_ < kLastPass) {
      ++pass_;
      row_ = kStarts[pass_];
    }
  }

 private:
  static constexpr std::array<std::size_t, 5> kStarts{0, 4, 2, 1, 0};
  static constexpr std::array<std::size_t, 5> kSteps{8, 8, 4, 2, 1};
  static constexpr std::size_t kLastPass = 3;
  static constexpr std::size_t kStraight = 4;

  std::size_t height_;
  std::size_t pass_;
  std::size_t row_ = 0;
};

}  // namespace

GIFPainter::GIFPainter(std::span<const std::uint8_t> data, const GIFStructure& structure)
    : data_(data),
      structure_(structure),
      globalPalette_(
          readPalette(structure.globalColourTableOffset(), structure.globalColourCount())) {}

GIFPainter::Palette GIFPainter::readPalette(std::size_t offset, std::size_t count) const {
  Palette palette;
  const std::uint8_t* entry = data_.data() + offset;
  for (std::size_t i = 0; i < count; ++i, entry += 3) {
    palette[i] = kOpaqueBlack | static_cast<std::uint32_t>(entry[0]) << 16 |
                 static_cast<std::uint32_t>(entry[1]) << 8 | entry[2];
  }
  std::fill(palette.begin() + static_cast<std::ptrdiff_t>(count), palette.end(), kOpaqueBlack);
  return palette;
}

const GIFPainter::Palette& GIFPainter::paletteFor(const GIFFrame& frame, Mode mode,
                                                  Palette& own) const {
  const bool clears = frame.hasTransparency && mode == Mode::kReplace;
  if (frame.hasOwnColourTable) {
    own = readPalette(frame.colourTableOffset, frame.colourCount);
  } else if (clears) {
    own = globalPalette_;
  } else {
    return globalPalette_;
  }
  if (clears) {
    own[frame.transparentIndex] = 0;
  }
  return own;
}

GIFPainter::Result GIFPainter::paint(std::size_t index, std::span<std::uint32_t> canvas, Mode mode,
                                     GIFDrawnPixels* drawn) {
  const GIFFrame frame = structure_.frame(index);
  const GIFRect rect = structure_.visibleRect(frame);
  if (rect.area() == 0) {
    return Result::kComplete;
  }
  // An interlaced image has visible rows up to its end.
  const std::size_t rowCount = frame.isInterlaced ? frame.height : rect.height;
  const std::size_t rowLength = frame.width;
  if (!decompressor_.begin(data_.subspan(frame.dataOffset), rowCount * rowLength)) {
    return Result::kNoMemory;
  }

  Palette own;
  const Palette& palette = paletteFor(frame, mode, own);
  const bool leavesTransparent = frame.hasTransparency && mode == Mode::kOver;
  std::uint32_t* const origin = canvas.data() + rect.top * structure_.width() + rect.left;
  const auto paintRow = [&](std::size_t row, const std::uint8_t* indexes, std::size_t count) {
    if (row >= rect.height) {
      return;
    }
    if (drawn != nullptr) {
      drawn->add(rect.top + row, rect.left, count);
    }
    std::uint32_t* const to = origin + row * structure_.width();
    if (leavesTransparent) {
      paintOver(to, indexes, count, palette.data(), frame.transparentIndex);
    } else {
      paintOpaque(to, indexes, count, palette.data());
    }
  };

  RowOrder order(rowCount, frame.isInterlaced);
  const std::size_t total = rowCount * rowLength;
  const std::size_t inBatch =
      total <= kBatch ? total : std::max<std::size_t>(1, kBatch / rowLength) * rowLength;
  const std::uint8_t* const indexes = decompressor_.indexes();
  std::size_t painted = 0;
  while (painted < total) {
    const std::size_t wanted = std::min(total, painted + inBatch);
    const std::size_t there = decompressor_.decode(wanted);
    for (; painted + rowLength <= there; painted += rowLength, order.advance()) {
      paintRow(order.row(), indexes + painted, rect.width);
    }
    if (there < wanted) {
      decodedPixelCount_ += there;
      paintRow(order.row(), indexes + painted, std::min(there - painted, rect.width));
      return Result::kPartial;
    }
  }
  decodedPixelCount_ += total;
  return Result::kComplete;
}
