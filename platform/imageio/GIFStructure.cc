#include "platform/imageio/GIFStructure.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/coregraphics/PixelBuffer.h"

namespace {

enum Block : std::uint8_t { kExtension = 0x21, kImageDescriptor = 0x2C };
enum ExtensionLabel : std::uint8_t { kPlainText = 0x01, kGraphicControl = 0xF9 };

constexpr std::size_t kScreenSize = 13;  // signature, version and logical screen descriptor
constexpr std::size_t kDescriptorSize = 9;
constexpr std::size_t kControlSize = 4;
constexpr std::size_t kFullSubBlock = 255;

GIFDisposal disposalOf(unsigned method) {
  switch (method) {
    case 2:
      return GIFDisposal::kClear;
    case 3:
    case 4:
      return GIFDisposal::kRestorePrevious;
    default:
      return GIFDisposal::kKeep;
  }
}

}  // namespace

class GIFStructure::Reader {
 public:
  explicit Reader(std::span<const std::uint8_t> data) : data_(data), structure_(data) {}

  std::optional<GIFStructure> read() {
    if (!readScreen()) {
      return std::nullopt;
    }
    canvasPixelCount_ = structure_.width_ * structure_.height_;
    while (offset_ < data_.size()) {
      const std::uint8_t block = data_[offset_++];
      if (block == kImageDescriptor ? !readImage() : block != kExtension || !readExtension()) {
        break;
      }
    }
    if (structure_.records_.empty()) {
      return std::nullopt;
    }
    return std::move(structure_);
  }

 private:
  bool has(std::size_t count) const { return data_.size() - offset_ >= count; }

  bool readScreen() {
    if (data_.size() < kScreenSize) {
      return false;
    }
    const std::string_view signature(reinterpret_cast<const char*>(data_.data()), 6);
    if (signature != "GIF87a" && signature != "GIF89a") {
      return false;
    }
    structure_.width_ = word(data_.data() + 6);
    structure_.height_ = word(data_.data() + 8);
    const std::uint8_t flags = data_[10];
    offset_ = kScreenSize;
    if (structure_.width_ == 0 || structure_.height_ == 0 ||
        structure_.width_ > PixelBuffer::kMaximumPixelCount / structure_.height_) {
      return false;
    }
    if ((flags & 0x80) != 0) {
      structure_.globalColourCount_ = static_cast<std::uint16_t>(2U << (flags & 7));
      structure_.globalColourTableOffset_ = offset_;
      const std::size_t size = 3 * std::size_t{structure_.globalColourCount_};
      offset_ += size;
      return data_.size() - kScreenSize >= size;
    }
    return true;
  }

  /// False if the data ends before the empty sub-block.
  bool skipSubBlocks() {
    const std::uint8_t* const data = data_.data();
    const std::size_t size = data_.size();
    std::size_t offset = offset_;
    while (offset < size) {
      const std::size_t length = data[offset];
      if (length == kFullSubBlock) {
        // A guess that the processor can follow ahead of the memory: nearly all blocks are full.
        offset += 1 + kFullSubBlock;
        continue;
      }
      offset += 1 + length;
      if (length == 0) {
        offset_ = offset;
        return true;
      }
    }
    offset_ = size;
    return false;
  }

  bool readExtension() {
    if (!has(1)) {
      return false;
    }
    const std::uint8_t label = data_[offset_++];
    if (label == kGraphicControl && has(1 + kControlSize) && data_[offset_] == kControlSize) {
      const std::uint8_t* const control = data_.data() + offset_ + 1;
      next_ = {};
      next_.hasControlExtension = 1;
      next_.disposal = static_cast<std::uint64_t>(disposalOf(control[0] >> 2 & 7));
      next_.hasTransparency = control[0] & 1;
      next_.delay = word(control + 1);
      next_.transparentIndex = control[3];
    } else if (label == kPlainText) {
      next_ = {};
    }
    return skipSubBlocks();
  }

  bool readImage() {
    if (!has(kDescriptorSize) || offset_ > kMaximumDescriptorOffset) {
      return false;
    }
    Record record = std::exchange(next_, {});
    record.descriptorOffset = offset_;
    const std::uint8_t* const descriptor = data_.data() + offset_;
    const std::size_t width = word(descriptor + 4);
    const std::size_t height = word(descriptor + 6);
    const std::uint8_t flags = descriptor[8];
    offset_ += kDescriptorSize;
    const std::size_t tableSize = (flags & 0x80) != 0 ? std::size_t{6} << (flags & 7) : 0;
    const bool hasData = has(tableSize + 1);
    if (hasData) {
      offset_ += tableSize;
      const std::uint8_t minimumCodeSize = data_[offset_++];
      record.isDecodable = minimumCodeSize >= 1 && minimumCodeSize <= 8 &&
                           width * height <= PixelBuffer::kMaximumPixelCount;
    }
    if (width == 0 || height == 0) {
      record.isDecodable = 1;
    }
    const std::size_t own = record.isDecodable != 0 ? width * height : 0;
    composited_ += std::max(canvasPixelCount_, own);
    if (composited_ > kMaximumCompositedPixelCount) {
      return false;
    }
    structure_.records_.push_back(record);
    return hasData && skipSubBlocks();
  }

  std::span<const std::uint8_t> data_;
  std::size_t offset_ = 0;
  std::size_t canvasPixelCount_ = 0;
  std::size_t composited_ = 0;  // if every frame were drawn
  GIFStructure structure_;
  Record next_{};  // what the control extension said of the next image
};

std::optional<GIFStructure> GIFStructure::read(std::span<const std::uint8_t> data) {
  return Reader(data).read();
}

GIFFrame GIFStructure::frame(std::size_t index) const {
  const Record record = this->record(index);
  const std::uint8_t* const descriptor = this->descriptor(index);
  const std::uint8_t flags = descriptor[8];
  GIFFrame frame;
  frame.left = word(descriptor);
  frame.top = word(descriptor + 2);
  frame.width = word(descriptor + 4);
  frame.height = word(descriptor + 6);
  frame.delay = record.delay;
  frame.transparentIndex = record.transparentIndex;
  frame.disposal = static_cast<GIFDisposal>(record.disposal);
  frame.hasControlExtension = record.hasControlExtension != 0;
  frame.hasTransparency = record.hasTransparency != 0;
  frame.isDecodable = record.isDecodable != 0;
  frame.isInterlaced = (flags & 0x40) != 0;
  frame.hasOwnColourTable = (flags & 0x80) != 0;
  frame.dataOffset = record.descriptorOffset + kDescriptorSize;
  if (frame.hasOwnColourTable) {
    frame.colourTableOffset = frame.dataOffset;
    frame.colourCount = static_cast<std::uint16_t>(2U << (flags & 7));
    frame.dataOffset += 3 * std::size_t{frame.colourCount};
  } else {
    frame.colourTableOffset = globalColourTableOffset_;
    frame.colourCount = globalColourCount_;
  }
  return frame;
}

bool GIFStructure::coversCanvas(std::size_t index) const {
  return visibleRect(index).area() == width_ * height_;
}

std::size_t GIFStructure::pixelCount(std::size_t index) const {
  const std::uint8_t* const descriptor = this->descriptor(index);
  return isDecodable(index) ? std::size_t{word(descriptor + 4)} * word(descriptor + 6) : 0;
}
