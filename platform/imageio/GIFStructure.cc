#include "platform/imageio/GIFStructure.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/coregraphics/PixelBuffer.h"

namespace {

enum Block : std::uint8_t { extension = 0x21, imageDescriptor = 0x2C };
enum ExtensionLabel : std::uint8_t { plainText = 0x01, graphicControl = 0xF9 };

constexpr std::size_t screenSize = 13;  // signature, version and logical screen descriptor
constexpr std::size_t descriptorSize = 9;
constexpr std::size_t controlSize = 4;
constexpr std::size_t fullSubBlock = 255;

GIFDisposal disposalOf(unsigned method) {
  switch (method) {
    case 2:
      return GIFDisposal::clear;
    case 3:
    case 4:
      return GIFDisposal::restorePrevious;
    default:
      return GIFDisposal::keep;
  }
}

class Reader {
 public:
  explicit Reader(std::span<const std::uint8_t> data) : data_(data) {}

  std::optional<GIFStructure> read() {
    if (!readScreen()) {
      return std::nullopt;
    }
    const std::size_t maximumFrames =
        GIFStructure::maximumCompositedPixelCount / (structure_.width * structure_.height);
    while (structure_.frames.size() < maximumFrames && offset_ < data_.size()) {
      const std::uint8_t block = data_[offset_++];
      if (block == imageDescriptor ? !readImage() : block != extension || !readExtension()) {
        break;
      }
    }
    if (structure_.frames.empty()) {
      return std::nullopt;
    }
    return std::move(structure_);
  }

 private:
  bool has(std::size_t count) const { return data_.size() - offset_ >= count; }

  std::uint16_t word(std::size_t at) const {
    return static_cast<std::uint16_t>(data_[at] | data_[at + 1] << 8);
  }

  bool readScreen() {
    if (data_.size() < screenSize) {
      return false;
    }
    const std::string_view signature(reinterpret_cast<const char*>(data_.data()), 6);
    if (signature != "GIF87a" && signature != "GIF89a") {
      return false;
    }
    structure_.width = word(6);
    structure_.height = word(8);
    const std::uint8_t flags = data_[10];
    offset_ = screenSize;
    if (structure_.width == 0 || structure_.height == 0 ||
        structure_.width > PixelBuffer::maximumPixelCount / structure_.height) {
      return false;
    }
    if ((flags & 0x80) != 0) {
      structure_.globalColourCount = static_cast<std::uint16_t>(2U << (flags & 7));
      structure_.globalColourTableOffset = offset_;
      return skip(3 * std::size_t{structure_.globalColourCount});
    }
    return true;
  }

  bool skip(std::size_t count) {
    if (!has(count)) {
      return false;
    }
    offset_ += count;
    return true;
  }

  /// False if the data ends before the empty sub-block.
  bool skipSubBlocks() {
    std::size_t offset = offset_;
    while (offset < data_.size()) {
      const std::size_t length = data_[offset];
      if (length == fullSubBlock) {
        // A guess that the processor can follow ahead of the memory: nearly all blocks are full.
        offset += 1 + fullSubBlock;
        continue;
      }
      offset += 1 + length;
      if (length == 0) {
        offset_ = offset;
        return true;
      }
    }
    offset_ = data_.size();
    return false;
  }

  bool readExtension() {
    if (!has(1)) {
      return false;
    }
    const std::uint8_t label = data_[offset_++];
    if (label == graphicControl && has(1 + controlSize) && data_[offset_] == controlSize) {
      const std::uint8_t flags = data_[offset_ + 1];
      next_ = GIFFrame{};
      next_.hasControlExtension = true;
      next_.disposal = disposalOf(flags >> 2 & 7);
      next_.hasTransparency = (flags & 1) != 0;
      next_.delay = word(offset_ + 2);
      next_.transparentIndex = data_[offset_ + 4];
    } else if (label == plainText) {
      next_ = GIFFrame{};
    }
    return skipSubBlocks();
  }

  bool readImage() {
    if (!has(descriptorSize)) {
      return false;
    }
    GIFFrame frame = std::exchange(next_, GIFFrame{});
    frame.left = word(offset_);
    frame.top = word(offset_ + 2);
    frame.width = word(offset_ + 4);
    frame.height = word(offset_ + 6);
    const std::uint8_t flags = data_[offset_ + 8];
    frame.isInterlaced = (flags & 0x40) != 0;
    frame.hasOwnColourTable = (flags & 0x80) != 0;
    frame.colourTableOffset = structure_.globalColourTableOffset;
    frame.colourCount = structure_.globalColourCount;
    offset_ += descriptorSize;
    bool whole = true;
    if (frame.hasOwnColourTable) {
      frame.colourTableOffset = offset_;
      frame.colourCount = static_cast<std::uint16_t>(2U << (flags & 7));
      whole = skip(3 * std::size_t{frame.colourCount});
    }
    whole = whole && has(1);
    if (whole) {
      frame.dataOffset = offset_;
      const std::uint8_t minimumCodeSize = data_[offset_++];
      frame.isDecodable = minimumCodeSize >= 1 && minimumCodeSize <= 8 &&
                          std::size_t{frame.width} * frame.height <= PixelBuffer::maximumPixelCount;
      whole = skipSubBlocks();
    }
    if (frame.isEmpty()) {
      frame.isDecodable = true;
    }
    structure_.frames.push_back(frame);
    return whole;
  }

  std::span<const std::uint8_t> data_;
  std::size_t offset_ = 0;
  GIFStructure structure_;
  GIFFrame next_;  // what the control extension said of the next image
};

}  // namespace

std::optional<GIFStructure> GIFStructure::read(std::span<const std::uint8_t> data) {
  return Reader(data).read();
}
