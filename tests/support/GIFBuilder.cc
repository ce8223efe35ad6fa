#include "tests/support/GIFBuilder.h"

#include <algorithm>
#include <bit>
#include <map>

namespace {

constexpr unsigned tableSize = 4096;
constexpr unsigned kMaximumWidth = 12;

std::uint8_t low(unsigned value) {
  return static_cast<std::uint8_t>(value & 255);
}

/// The flags of a colour table: that it is there, and the logarithm of its size less one.
unsigned tableFlags(GIFBuilder::ColourTable colours) {
  if (colours.empty()) {
    return 0;
  }
  return 0x80U | (static_cast<unsigned>(std::bit_width(colours.size() / 3)) - 2);
}

}  // namespace

GIFBuilder::GIFBuilder(unsigned width, unsigned height, ColourTable colours,
                       std::string_view signature)
    : bytes_(signature.begin(), signature.end()) {
  word(width).word(height).bytes({low(tableFlags(colours)), 0, 0}).bytes(colours);
}

GIFBuilder& GIFBuilder::bytes(std::initializer_list<std::uint8_t> bytes) {
  bytes_.insert(bytes_.end(), bytes);
  return *this;
}

GIFBuilder& GIFBuilder::bytes(std::span<const std::uint8_t> bytes) {
  bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
  return *this;
}

GIFBuilder& GIFBuilder::word(unsigned value) {
  return bytes({low(value), low(value >> 8)});
}

GIFBuilder& GIFBuilder::control(const Control& control) {
  const unsigned flags = control.disposal << 2 | (control.transparentIndex ? 1 : 0);
  return bytes({0x21, 0xF9, 4, low(flags)})
      .word(control.delay)
      .bytes({control.transparentIndex.value_or(0), 0});
}

GIFBuilder& GIFBuilder::descriptor(const Image& image) {
  const unsigned flags = tableFlags(image.colours) | (image.interlaced ? 0x40 : 0);
  return bytes({0x2C})
      .word(image.left)
      .word(image.top)
      .word(image.width)
      .word(image.height)
      .bytes({low(flags)})
      .bytes(image.colours);
}

GIFBuilder& GIFBuilder::image(const Image& image, unsigned minimumCodeSize,
                              std::span<const std::uint8_t> indexes) {
  return imageOfCodes(image, minimumCodeSize, compress(minimumCodeSize, indexes));
}

GIFBuilder& GIFBuilder::imageOfCodes(const Image& image, unsigned minimumCodeSize,
                                     std::span<const unsigned> codes) {
  return descriptor(image).bytes({low(minimumCodeSize)}).subBlocks(pack(minimumCodeSize, codes));
}

GIFBuilder& GIFBuilder::subBlocks(std::span<const std::uint8_t> bytes, std::size_t size) {
  for (std::size_t at = 0; at < bytes.size(); at += size) {
    const auto block = bytes.subspan(at, std::min(size, bytes.size() - at));
    this->bytes({low(static_cast<unsigned>(block.size()))}).bytes(block);
  }
  return this->bytes({0});
}

GIFBuilder& GIFBuilder::cutTo(std::size_t size) {
  bytes_.resize(size);
  return *this;
}

GIFBuilder::Bytes GIFBuilder::pack(unsigned minimumCodeSize, std::span<const unsigned> codes) {
  Bytes bytes;
  const unsigned clear = 1U << minimumCodeSize;
  unsigned width = minimumCodeSize + 1;
  unsigned next = clear + 1;
  unsigned bits = 0;
  unsigned bitCount = 0;
  for (const unsigned code : codes) {
    bits |= code << bitCount;
    bitCount += width;
    for (; bitCount >= 8; bitCount -= 8, bits >>= 8) {
      bytes.push_back(low(bits));
    }
    if (code == clear) {
      width = minimumCodeSize + 1;
      next = clear + 1;
      continue;
    }
    next = std::min(next + 1, tableSize);
    if (next >> width != 0 && width < kMaximumWidth) {
      ++width;
    }
  }
  if (bitCount > 0) {
    bytes.push_back(low(bits));
  }
  return bytes;
}

std::vector<unsigned> GIFBuilder::compress(unsigned minimumCodeSize,
                                           std::span<const std::uint8_t> indexes,
                                           bool clearsFullTable) {
  const unsigned clear = 1U << minimumCodeSize;
  std::vector<unsigned> codes{clear};
  std::map<std::pair<unsigned, unsigned>, unsigned> strings;  // code and next index: code
  unsigned next = clear + 2;
  std::optional<unsigned> current;
  for (const std::uint8_t index : indexes) {
    if (!current) {
      current = index;
      continue;
    }
    if (const auto found = strings.find({*current, index}); found != strings.end()) {
      current = found->second;
      continue;
    }
    codes.push_back(*current);
    if (next < tableSize) {
      strings[{*current, index}] = next++;
    } else if (clearsFullTable) {
      codes.push_back(clear);
      strings.clear();
      next = clear + 2;
    }
    current = index;
  }
  if (current) {
    codes.push_back(*current);
  }
  codes.push_back(clear + 1);
  return codes;
}
