#include "tools/gif/GifCommand.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "animated/FLAnimatedImage.h"
#include "platform/imageio/CGImageSource.h"
#include "tools/gif/StraightPixels.h"

namespace {

constexpr int failed = 1;
constexpr int wrongUsage = 2;

// No animation that a phone plays comes near this.
constexpr std::size_t maximumFileSize = std::size_t{256} << 20;

struct Options {
  bool checksums = false;
  std::optional<std::size_t> frame;
  std::string picture;
  std::string file;
};

std::optional<std::size_t> parseNumber(std::string_view text) {
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) {
    return std::nullopt;
  }
  return number;
}

std::optional<Options> parse(std::span<char* const> arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    if (argument == "--checksums") {
      options.checksums = true;
    } else if (argument == "--frame" && arguments.size() - i > 2) {
      options.frame = parseNumber(arguments[++i]);
      options.picture = arguments[++i];
      if (!options.frame) {
        return std::nullopt;
      }
    } else if (options.file.empty() && !argument.starts_with("--")) {
      options.file = argument;
    } else {
      return std::nullopt;
    }
  }
  return options.file.empty() ? std::nullopt : std::optional(options);
}

/// Null if the file cannot be read or is too large.
CGImageSource::Data readFile(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  auto bytes = std::make_shared<std::vector<std::uint8_t>>();
  constexpr std::size_t step = std::size_t{1} << 20;
  while (stream) {
    const std::size_t size = bytes->size();
    if (size > maximumFileSize) {
      return nullptr;
    }
    bytes->resize(size + step);
    stream.read(reinterpret_cast<char*>(bytes->data() + size), step);
    bytes->resize(size + static_cast<std::size_t>(stream.gcount()));
  }
  return stream.eof() ? bytes : nullptr;
}

std::shared_ptr<const PixelBuffer> pixelsOf(const CGImageSource& source, std::size_t index) {
  const std::shared_ptr<const CGImage> image = source.createImageAtIndex(index);
  return image ? image->pixels() : nullptr;
}

bool hasImage(const CGImageSource& source) {
  for (std::size_t i = 0; i < source.count(); ++i) {
    if (source.createImageAtIndex(i)) {
      return true;
    }
  }
  return false;
}

// How it would be played; null where it cannot be.
nlohmann::ordered_json describeAnimation(const CGImageSource::Data& data) {
  const auto image = FLAnimatedImage::animatedImageWithGIFData(NSData::dataWithBytes(*data));
  nlohmann::ordered_json object;
  object["delays"] = image ? nlohmann::ordered_json(image->delayTimes()) : nlohmann::ordered_json();
  object["posterFrame"] =
      image ? nlohmann::ordered_json(image->posterImageFrameIndex()) : nlohmann::ordered_json();
  object["optimalCacheSize"] =
      image ? nlohmann::ordered_json(image->frameCacheSizeOptimal()) : nlohmann::ordered_json();
  return object;
}

nlohmann::ordered_json describe(const CGImageSource& source, const CGImageSource::Data& data,
                                bool withChecksums) {
  const std::optional<CGImageProperties> first = source.copyPropertiesAtIndex(0);
  nlohmann::ordered_json unclamped = nlohmann::ordered_json::array();
  nlohmann::ordered_json checksums = nlohmann::ordered_json::array();
  for (std::size_t i = 0; i < source.count(); ++i) {
    const std::optional<double> delay = source.copyPropertiesAtIndex(i)->gif.unclampedDelayTime;
    unclamped.push_back(delay ? nlohmann::ordered_json(*delay) : nlohmann::ordered_json());
    if (withChecksums) {
      const std::shared_ptr<const PixelBuffer> pixels = pixelsOf(source, i);
      checksums.push_back(pixels ? nlohmann::ordered_json(StraightPixels(*pixels).checksum())
                                 : nlohmann::ordered_json());
    }
  }
  nlohmann::ordered_json object;
  object["width"] = first->pixelWidth;
  object["height"] = first->pixelHeight;
  object["frames"] = source.count();
  object["unclamped"] = std::move(unclamped);
  object.update(describeAnimation(data));
  if (withChecksums) {
    object["checksums"] = std::move(checksums);
  }
  return object;
}

}  // namespace

int runGifCommand(std::span<char* const> arguments, std::ostream& out, std::ostream& err) {
  constexpr const char* kUsage =
      "usage: quietdial gif [--checksums] [--frame N PICTURE.png] FILE\n";
  if (arguments.size() == 1 && std::string_view(arguments.front()) == "--help") {
    out << kUsage << "Prints what an animated picture holds, as one JSON object.\n";
    return 0;
  }
  const std::optional<Options> options = parse(arguments);
  if (!options) {
    err << kUsage;
    return wrongUsage;
  }
  const CGImageSource::Data data = readFile(options->file);
  if (!data) {
    err << options->file << " cannot be read.\n";
    return failed;
  }
  const std::shared_ptr<CGImageSource> source = CGImageSource::createWithData(data);
  if (!source || !hasImage(*source)) {
    err << options->file << " is not a GIF with an image in it.\n";
    return failed;
  }
  if (options->frame) {
    const std::shared_ptr<const PixelBuffer> pixels = pixelsOf(*source, *options->frame);
    if (!pixels) {
      err << options->file << " has no frame " << *options->frame << " that can be decoded.\n";
      return failed;
    }
    if (!StraightPixels(*pixels).writePNG(options->picture)) {
      err << options->picture << " cannot be written.\n";
      return failed;
    }
  }
  out << describe(*source, data, options->checksums) << '\n';
  return 0;
}
