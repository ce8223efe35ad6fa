#include "platform/imageio/CGImageSource.h"

#include <utility>

#include "platform/imageio/GIFCompositor.h"
#include "platform/imageio/UTType.h"

namespace {

constexpr unsigned minimumDelay = 2;  // hundredths of a second
constexpr double defaultDelayTime = 0.1;

class FrameProvider : public PixelProvider {
 public:
  FrameProvider(std::shared_ptr<GIFCompositor> compositor, std::size_t index)
      : compositor_(std::move(compositor)), index_(index) {}

  std::shared_ptr<const PixelBuffer> makePixels() override {
    return compositor_->compositeFrame(index_);
  }

 private:
  std::shared_ptr<GIFCompositor> compositor_;
  std::size_t index_;
};

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
  return compositor_->structure().frames.size();
}

std::shared_ptr<const CGImage> CGImageSource::createImageAtIndex(std::size_t index) const {
  const GIFStructure& structure = compositor_->structure();
  if (index >= structure.frames.size() || !structure.frames[index].isDecodable) {
    return nullptr;
  }
  return CGImage::create(structure.width, structure.height,
                         std::make_shared<FrameProvider>(compositor_, index));
}

std::optional<CGImageProperties> CGImageSource::copyPropertiesAtIndex(std::size_t index) const {
  const GIFStructure& structure = compositor_->structure();
  if (index >= structure.frames.size()) {
    return std::nullopt;
  }
  CGImageProperties properties{
      .pixelWidth = structure.width, .pixelHeight = structure.height, .gif = {}};
  const GIFFrame& frame = structure.frames[index];
  if (frame.hasControlExtension) {
    properties.gif.unclampedDelayTime = frame.delay / 100.0;
    properties.gif.delayTime = frame.delay < minimumDelay ? defaultDelayTime : frame.delay / 100.0;
  }
  return properties;
}
