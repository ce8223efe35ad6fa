#include "platform/imageio/CGImageSource.h"

#include <utility>

#include "platform/imageio/GIFCompositor.h"
#include "platform/imageio/UTType.h"

namespace {

constexpr unsigned kMinimumDelay = 2;  // hundredths of a second
constexpr double kDefaultDelayTime = 0.1;

}  // namespace

CGImageSource::CGImageSource(std::shared_ptr<GIFCompositor> compositor)
    : compositor_(std::move(compositor)) {}

CGImageSource::~CGImageSource() = default;

std::shared_ptr<CGImageSource> CGImageSource::createWithData(Data data) {
  if (!data) {
    return nullptr;
  }
  std::optional<GIFStructure> structure = GIFStructure::read(*data);
  if (!structure) {
    return nullptr;
  }
  return std::shared_ptr<CGImageSource>(
      new CGImageSource(std::make_shared<GIFCompositor>(std::move(data), *std::move(structure))));
}

std::string_view CGImageSource::type() const {
  return kUTTypeGIF;
}

std::size_t CGImageSource::count() const {
  return compositor_->structure().frameCount();
}

std::shared_ptr<const CGImage> CGImageSource::createImageAtIndex(std::size_t index) const {
  const GIFStructure& structure = compositor_->structure();
  if (index >= structure.frameCount() || !structure.isDecodable(index)) {
    return nullptr;
  }
  return CGImage::create(structure.width(), structure.height(), compositor_, index);
}

std::optional<CGImageProperties> CGImageSource::copyPropertiesAtIndex(std::size_t index) const {
  const GIFStructure& structure = compositor_->structure();
  if (index >= structure.frameCount()) {
    return std::nullopt;
  }
  CGImageProperties properties{
      .pixelWidth = structure.width(), .pixelHeight = structure.height(), .gif = {}};
  const GIFFrame frame = structure.frame(index);
  if (frame.hasControlExtension) {
    properties.gif.unclampedDelayTime = frame.delay / 100.0;
    properties.gif.delayTime =
        frame.delay < kMinimumDelay ? kDefaultDelayTime : frame.delay / 100.0;
  }
  return properties;
}
