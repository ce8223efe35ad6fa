#include "platform/imageio/GIFDecompressor.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

// Strings are copied in pieces of this size, so up to this much is written after each.
constexpr std::size_t kPiece = 16;

/// The two may overlap: a short string is often copied to just behind itself.
void copyPiece(std::uint8_t* to, const std::uint8_t* from) {
  std::array<std::uint8_t, kPiece> bytes;
  std::memcpy(bytes.data(), from, kPiece);
  std::memcpy(to, bytes.data(), kPiece);
}

}  // namespace

bool GIFDecompressor::begin(std::span<const std::uint8_t> data, std::size_t pixelCount) {
  const std::size_t needed = kLiteralCount + pixelCount + kTableSize + kPiece;
  if (needed > capacity_) {
    output_.reset();
    capacity_ = 0;
    output_.reset(new (std::nothrow) std::uint8_t[needed]);
    if (!output_) {
      return false;
    }
    capacity_ = needed;
    for (std::size_t literal = 0; literal < kLiteralCount; ++literal) {
      output_[literal] = static_cast<std::uint8_t>(literal);
    }
  }
  clearCode_ = 1U << data.front();
  for (std::uint32_t literal = literalsInTable_; literal < clearCode_; ++literal) {
    table_[literal] = {literal, 1};
  }
  literalsInTable_ = clearCode_;  // those above are overwritten by strings
  reader_ = GIFCodeReader(data.subspan(1));
  written_ = kLiteralCount;
  pixelCount_ = pixelCount;
  ended_ = false;
  // The first code after a clear adds no string; what it would add goes to the end code's unused
  // place.
  nextCode_ = clearCode_ + 1;
  width_ = data.front() + 1U;
  last_ = {};
  return true;
}

std::size_t GIFDecompressor::decode(std::size_t count) {
  std::uint8_t* const output = output_.get();
  String* const table = table_.data();
  const unsigned clearCode = clearCode_;
  const std::size_t end = kLiteralCount + std::min(count, pixelCount_);
  GIFCodeReader reader = reader_;
  std::size_t written = written_;
  String last = last_;
  unsigned nextCode = nextCode_;
  unsigned width = width_;

  while (written < end && !ended_) {
    if (!reader.prepare(width)) {
      ended_ = true;
      break;
    }
    const unsigned code = reader.take(width);
    if (code == clearCode) {
      nextCode = clearCode + 1;
      width = static_cast<unsigned>(std::bit_width(clearCode));
      continue;
    }
    if (nextCode < kTableSize) {
      table[nextCode++] = {last.start, last.length + 1};
    }
    if (code >= nextCode || code == clearCode + 1) {
      ended_ = true;  // a code that stands for nothing yet, or the end code
      break;
    }
    const String string = table[code];
    const std::uint8_t* from = output + string.start;
    std::uint8_t* to = output + written;
    copyPiece(to, from);
    for (std::size_t copied = kPiece; copied < string.length; copied += kPiece) {
      copyPiece(to + copied, from + copied);
    }
    // The newest string ends with the byte that it starts with here, copied before it was there.
    // After any other the byte is written behind the string, where the next one goes: a processor
    // waits when what it reads comes from two writes that are still under way.
    const bool isNewest = from + string.length > to;
    to[string.length - (isNewest ? 1 : 0)] = *from;
    last = {static_cast<std::uint32_t>(written), string.length};
    written += string.length;
    if (nextCode > (1U << width) - 1 && width < kMaximumWidth) {
      ++width;
    }
  }

  reader_ = reader;
  written_ = written;
  last_ = last;
  nextCode_ = nextCode;
  width_ = width;
  return std::min(written - kLiteralCount, pixelCount_);
}
