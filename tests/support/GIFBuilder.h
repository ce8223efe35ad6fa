#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

/// Writes GIF files block by block, faulty ones too. Nothing is checked.
class GIFBuilder {
 public:
  using Bytes = std::vector<std::uint8_t>;
  /// Three bytes an entry; as many entries as a table may have (2, 4, ... 256), or none.
  using ColourTable = std::span<const std::uint8_t>;

  struct Control {
    unsigned disposal = 0;
    unsigned delay = 0;  // hundredths of a second
    std::optional<std::uint8_t> transparentIndex = std::nullopt;
  };
  struct Image {
    unsigned left = 0;
    unsigned top = 0;
    unsigned width = 0;
    unsigned height = 0;
    bool interlaced = false;
    ColourTable colours = {};
  };

  GIFBuilder(unsigned width, unsigned height, ColourTable colours,
             std::string_view signature = "GIF89a");

  GIFBuilder& bytes(std::initializer_list<std::uint8_t> bytes);
  GIFBuilder& bytes(std::span<const std::uint8_t> bytes);
  GIFBuilder& control(const Control& control);
  /// An image with its indexes in the order in which they are stored, compressed as encoders do.
  GIFBuilder& image(const Image& image, unsigned minimumCodeSize,
                    std::span<const std::uint8_t> indexes);
  /// An image whose data is these codes.
  GIFBuilder& imageOfCodes(const Image& image, unsigned minimumCodeSize,
                           std::span<const unsigned> codes);
  /// Descriptor and colour table without any data.
  GIFBuilder& descriptor(const Image& image);
  /// The bytes in sub-blocks of at most `size`, then the empty one.
  GIFBuilder& subBlocks(std::span<const std::uint8_t> bytes, std::size_t size = 255);
  GIFBuilder& trailer() { return bytes({0x3B}); }

  std::shared_ptr<const Bytes> data() const { return std::make_shared<const Bytes>(bytes_); }
  std::size_t size() const { return bytes_.size(); }
  /// Cuts off everything after the first `size` bytes.
  GIFBuilder& cutTo(std::size_t size);

  /// Codes in as many bits each as a decoder then expects.
  static Bytes pack(unsigned minimumCodeSize, std::span<const unsigned> codes);
  /// The codes of a clear, the strings, and the end. `clearsFullTable` is what most encoders do.
  static std::vector<unsigned> compress(unsigned minimumCodeSize,
                                        std::span<const std::uint8_t> indexes,
                                        bool clearsFullTable = true);

 private:
  GIFBuilder& word(unsigned value);

  Bytes bytes_;
};
