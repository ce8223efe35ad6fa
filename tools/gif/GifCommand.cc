#include "tools/gif/GifCommand.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include "animated/FLAnimatedImage.h"
#include "linux/FileDescriptor.h"
#include "linux/readFile.h"
#include "platform/imageio/CGImageSource.h"
#include "tools/gif/StraightPixels.h"

namespace {

constexpr int kFailed = 1;

// No animation that a phone plays comes near this.
constexpr std::size_t kLargestFile = std::size_t{256} << 20;

constexpr const char* kUsage = "usage: quietdial gif [--checksums] [--frame N PICTURE.png] FILE\n";

std::optional<std::size_t> numberFrom(std::string_view text) {
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc{} && end == text.data() + text.size() ? std::optional(number)
                                                                  : std::nullopt;
}

/// Null if the file cannot be read or is too large.
CGImageSource::Data bytesOf(const std::string& path) {
  // Not only files: another program's output will do.
  const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  const auto contents = file ? readStream(file.get(), kLargestFile) : FileContents();
  if (contents.outcome != FileContents::Outcome::kRead) {
    return nullptr;
  }
  return std::make_shared<std::vector<std::uint8_t>>(contents.bytes.begin(), contents.bytes.end());
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
nlohmann::ordered_json reportAnimation(const CGImageSource::Data& data) {
  const auto image = FLAnimatedImage::animatedImageWithGIFData(NSData::dataWithBytes(*data));
  nlohmann::ordered_json object;
  object["delays"] = image ? nlohmann::ordered_json(image->delayTimes()) : nlohmann::ordered_json();
  object["posterFrame"] =
      image ? nlohmann::ordered_json(image->posterImageFrameIndex()) : nlohmann::ordered_json();
  object["optimalCacheSize"] =
      image ? nlohmann::ordered_json(image->frameCacheSizeOptimal()) : nlohmann::ordered_json();
  return object;
}

nlohmann::ordered_json report(const CGImageSource& source, const CGImageSource::Data& data,
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
  object.update(reportAnimation(data));
  if (withChecksums) {
    object["checksums"] = std::move(checksums);
  }
  return object;
}

}  // namespace

std::vector<Example> GifCommand::examples() const {
  return {{"quietdial gif --checksums picture.gif", "one JSON object"}};
}

void GifCommand::describe(CLI::App& app) {
  app.add_option("FILE", file_, "The picture")->required();
  app.add_flag("--checksums", withChecksums_, "Tell the SHA-256 of each frame as well");
  app.add_option_function<std::pair<std::string, std::string>>(
         "--frame",
         [this](const auto& given) {
           const auto index = numberFrom(given.first);
           if (!index) {
             throw CLI::ValidationError("--frame", "N has to be a whole number from 0");
           }
           frame_ = {*index, given.second};
         },
         "Write frame N, counted from 0, as PICTURE.png")
      ->type_name("N PICTURE.png");
  app.failure_message(
      [](const CLI::App* /*app*/, const CLI::Error& /*error*/) { return std::string(kUsage); });
}

int GifCommand::run(Streams streams) {
  const CGImageSource::Data data = bytesOf(file_);
  if (!data) {
    streams.err << file_ << " cannot be read.\n";
    return kFailed;
  }
  const std::shared_ptr<CGImageSource> source = CGImageSource::createWithData(data);
  if (!source || !hasImage(*source)) {
    streams.err << file_ << " is not a GIF with an image in it.\n";
    return kFailed;
  }
  if (frame_ && !writeFrame(*source, streams.err)) {
    return kFailed;
  }
  streams.out << report(*source, data, withChecksums_) << '\n';
  return 0;
}

bool GifCommand::writeFrame(const CGImageSource& source, std::ostream& err) const {
  const auto& [index, picture] = *frame_;
  const std::shared_ptr<const PixelBuffer> pixels = pixelsOf(source, index);
  if (!pixels) {
    err << file_ << " has no frame " << index << " that can be decoded.\n";
    return false;
  }
  if (!StraightPixels(*pixels).writePNG(picture)) {
    err << picture << " cannot be written.\n";
    return false;
  }
  return true;
}
