#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

/// Takes codes of 1 to 12 bits, lowest bit first, from a chain of sub-blocks.
class GIFCodeReader {
 public:
  GIFCodeReader() = default;

  /// `subBlocks` starts at the first length byte and may go on after the chain's end.
  explicit GIFCodeReader(std::span<const std::uint8_t> subBlocks)
      : byte_(subBlocks.data()),
        blockEnd_(subBlocks.data()),
        dataEnd_(subBlocks.data() + subBlocks.size()) {}

  /// Makes `width` bits readable by take(). False at the end of the data.
  bool prepare(unsigned width) {
    if (bitCount_ >= width) {
      return true;
    }
    if (blockEnd_ - byte_ >= 8) {
      // What does not fit is read again next time; the same bits are then or-ed to the same place.
      bits_ |= littleEndian(byte_) << bitCount_;
      byte_ += (63 - bitCount_) >> 3;
      bitCount_ |= 56;
      return true;
    }
    return refillBytewise(width);
  }

  unsigned take(unsigned width) {
    const auto code = static_cast<unsigned>(bits_) & ((1U << width) - 1);
    bits_ >>= width;
    bitCount_ -= width;
    return code;
  }

 private:
  static std::uint64_t littleEndian(const std::uint8_t* bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    if constexpr (std::endian::native == std::endian::big) {
      word = __builtin_bswap64(word);
    }
    return word;
  }

  bool refillBytewise(unsigned width) {
    while (bitCount_ <= 56) {
      if (byte_ == blockEnd_ && !enterBlock()) {
        break;
      }
      bits_ |= std::uint64_t{*byte_++} << bitCount_;
      bitCount_ += 8;
    }
    return bitCount_ >= width;
  }

  bool enterBlock() {
    if (byte_ == dataEnd_ || *byte_ == 0) {
      return false;
    }
    const std::ptrdiff_t length = *byte_++;
    blockEnd_ = dataEnd_ - byte_ < length ? dataEnd_ : byte_ + length;
    return byte_ != blockEnd_;
  }

  const std::uint8_t* byte_ = nullptr;
  const std::uint8_t* blockEnd_ = nullptr;
  const std::uint8_t* dataEnd_ = nullptr;
  std::uint64_t bits_ = 0;
  unsigned bitCount_ = 0;
};
