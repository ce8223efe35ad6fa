#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/imageio/GIFFrame.h"

/// The blocks of a GIF 87a or 89a file (CompuServe, "Graphics Interchange Format", version 89a,
/// 1990), found without decoding any image data. Takes 8 bytes for each image of the file; the rest
/// is read from the file again, which has to outlive the structure.
///
/// Where files in the wild and the format disagree:
/// - The canvas is the logical screen and is never enlarged. One without a pixel, or with more than
///   PixelBuffer::kMaximumPixelCount, makes the file no image, and so does an unknown version or a
///   file without a single whole image descriptor.
/// - Reading stops, and the frames so far stay, at the trailer, the end of the data, anything that
///   is no block, and after 32 GiB.
/// - Control extensions are honoured in both versions. The last one before an image counts, whole;
///   a comment or application extension in between does not part them; a plain text extension uses
///   it up. One that is not 4 bytes long is passed over.
/// - Disposal 4, which is reserved, is taken as 3; 5 to 7 as none.
/// - A frame is undecodable if the file ends before its first byte of data, if its minimum code
///   size is not 1 to 8, or if it has more than PixelBuffer::kMaximumPixelCount pixels. One of no
///   area needs no data: it counts, with its delay, and draws nothing.
/// - Frames are counted up to `kMaximumCompositedPixelCount` pixels, each with those of the canvas
/// or
///   its own if it has more, which bounds the time of one pass over any file.
class GIFStructure {
 public:
  static constexpr std::size_t kMaximumCompositedPixelCount = std::size_t{1} << 36;

  /// Nothing if the data makes no image.
  static std::optional<GIFStructure> read(std::span<const std::uint8_t> data);

  std::size_t width() const { return width_; }
  std::size_t height() const { return height_; }
  std::size_t globalColourTableOffset() const { return globalColourTableOffset_; }
  std::uint16_t globalColourCount() const { return globalColourCount_; }

  std::size_t frameCount() const { return records_.size(); }
  /// Indexes are not checked.
  GIFFrame frame(std::size_t index) const;
  // What is asked for most, without reading all of the frame.
  GIFDisposal disposal(std::size_t index) const {
    return static_cast<GIFDisposal>(record(index).disposal);
  }
  bool isDecodable(std::size_t index) const { return record(index).isDecodable != 0; }
  bool hasTransparency(std::size_t index) const { return record(index).hasTransparency != 0; }
  /// What of the frame is on the canvas.
  GIFRect visibleRect(std::size_t index) const {
    const std::uint8_t* const descriptor = this->descriptor(index);
    return visibleRect(word(descriptor), word(descriptor + 2), word(descriptor + 4),
                       word(descriptor + 6));
  }
  GIFRect visibleRect(const GIFFrame& frame) const {
    return visibleRect(frame.left, frame.top, frame.width, frame.height);
  }
  bool coversCanvas(std::size_t index) const;
  /// Of the whole frame; 0 if it is not decodable.
  std::size_t pixelCount(std::size_t index) const;

 private:
  class Reader;

  /// Of a frame, where its descriptor is, what stands before it, and what is found out behind it.
  struct Record {
    std::uint64_t descriptorOffset : 35;
    std::uint64_t delay : 16;
    std::uint64_t transparentIndex : 8;
    std::uint64_t disposal : 2;
    std::uint64_t hasControlExtension : 1;
    std::uint64_t hasTransparency : 1;
    std::uint64_t isDecodable : 1;
  };
  static constexpr std::size_t kMaximumDescriptorOffset = (std::size_t{1} << 35) - 1;
  static_assert(sizeof(Record) == 8);

  static std::uint16_t word(const std::uint8_t* bytes) {
    return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
  }
  GIFRect visibleRect(std::size_t left, std::size_t top, std::size_t width,
                      std::size_t height) const {
    GIFRect rect{
        .left = std::min(left, width_), .top = std::min(top, height_), .width = 0, .height = 0};
    rect.width = std::min(width, width_ - rect.left);
    rect.height = std::min(height, height_ - rect.top);
    return rect;
  }

  explicit GIFStructure(std::span<const std::uint8_t> data) : data_(data) {}

  // Asserted indexes cost more than reading the record.
  const Record& record(std::size_t index) const { return records_.data()[index]; }
  const std::uint8_t* descriptor(std::size_t index) const {
    return data_.data() + record(index).descriptorOffset;
  }

  std::span<const std::uint8_t> data_;
  std::size_t width_ = 0;
  std::size_t height_ = 0;
  std::size_t globalColourTableOffset_ = 0;
  std::uint16_t globalColourCount_ = 0;
  std::vector<Record> records_;
};
