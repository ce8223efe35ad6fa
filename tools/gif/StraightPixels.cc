#include "tools/gif/StraightPixels.h"

#include <array>
#include <png.h>

#include <openssl/evp.h>

namespace {

std::uint8_t unpremultiplied(std::uint32_t colour, std::uint32_t alpha) {
  const std::uint32_t straight = alpha == 0 ? 0 : (colour * 255 + alpha / 2) / alpha;
  return static_cast<std::uint8_t>(straight < 255 ? straight : 255);
}

}  // namespace

StraightPixels::StraightPixels(const PixelBuffer& pixels)
    : width_(pixels.width()), height_(pixels.height()) {
  bytes_.reserve(4 * width_ * height_);
  for (const std::uint32_t pixel : pixels.pixels()) {
    const std::uint32_t alpha = pixel >> 24;
    bytes_.push_back(unpremultiplied(pixel >> 16 & 255, alpha));
    bytes_.push_back(unpremultiplied(pixel >> 8 & 255, alpha));
    bytes_.push_back(unpremultiplied(pixel & 255, alpha));
    bytes_.push_back(static_cast<std::uint8_t>(alpha));
  }
}

std::string StraightPixels::checksum() const {
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned int length = 0;
  EVP_Digest(bytes_.data(), bytes_.size(), digest.data(), &length, EVP_sha256(), nullptr);
  std::string text;
  for (unsigned int i = 0; i < length; ++i) {
    constexpr char kDigits[] = "0123456789abcdef";
    text += kDigits[digest[i] >> 4];
    text += kDigits[digest[i] & 15];
  }
  return text;
}

bool StraightPixels::writePNG(const std::string& path) const {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.format = PNG_FORMAT_RGBA;
  image.width = static_cast<png_uint_32>(width_);
  image.height = static_cast<png_uint_32>(height_);
  return png_image_write_to_file(&image, path.c_str(), 0, bytes_.data(), 0, nullptr) != 0;
}
