#include "linux/PictureHeaderService.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <string_view>
#include <utility>

#include <sys/stat.h>

#include "linux/FileDescriptor.h"

namespace {

// A PNG file starts with its signature and the header chunk: length 13, "IHDR", width and height
// (PNG, sections 5.2 and 11.2.2).
constexpr std::string_view kPNGStart{"\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16};
constexpr std::size_t kPNGLength = 24;
constexpr std::uint32_t kLargestPNGSide = 0x7FFFFFFF;

// A GIF file starts with its signature and version, then width and height (GIF89a, 17 and 18).
constexpr std::size_t kGIFLength = 10;

std::uint32_t byteAt(std::string_view bytes, std::size_t position) {
  return static_cast<unsigned char>(bytes[position]);
}

std::uint32_t bigEndian32(std::string_view bytes, std::size_t position) {
  return byteAt(bytes, position) << 24U | byteAt(bytes, position + 1) << 16U |
         byteAt(bytes, position + 2) << 8U | byteAt(bytes, position + 3);
}

std::uint32_t littleEndian16(std::string_view bytes, std::size_t position) {
  return byteAt(bytes, position) | byteAt(bytes, position + 1) << 8U;
}

std::optional<CGSize> sizeFromHeader(std::string_view header) {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  if (header.size() >= kPNGLength && header.starts_with(kPNGStart)) {
    width = bigEndian32(header, 16);
    height = bigEndian32(header, 20);
  } else if (header.size() >= kGIFLength &&
             (header.starts_with("GIF87a") || header.starts_with("GIF89a"))) {
    width = littleEndian16(header, 6);
    height = littleEndian16(header, 8);
  }
  if (width == 0 || height == 0 || width > kLargestPNGSide || height > kLargestPNGSide) {
    return std::nullopt;
  }
  return CGSize{static_cast<CGFloat>(width), static_cast<CGFloat>(height)};
}

}  // namespace

PictureHeaderService::PictureHeaderService(std::shared_ptr<const DevicePaths> paths)
    : paths_(std::move(paths)) {}

std::optional<CGSize> PictureHeaderService::pixelSize(const std::string& path) {
  const auto host = paths_->forReading(path);
  const FileDescriptor file(host ? open(host->c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)
                                 : -1);
  struct stat status {};
  if (!file || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return std::nullopt;
  }
  std::array<char, kPNGLength> header{};
  std::size_t length = 0;
  while (length < header.size()) {
    const ssize_t count = read(file.get(), header.data() + length, header.size() - length);
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count <= 0) {
      break;
    }
    length += static_cast<std::size_t>(count);
  }
  return sizeFromHeader({header.data(), length});
}
