#include "animated/FLAnimatedImage.h"

#include <algorithm>
#include <limits>

#include "platform/coregraphics/CGBitmapContext.h"
#include "platform/foundation/MainQueue.h"
#include "platform/foundation/NSNull.h"
#include "platform/foundation/method.h"
#include "platform/imageio/UTType.h"
#include "platform/uikit/UIApplication.h"

namespace {

constexpr auto kMethods = methods<FLAnimatedImage>(
    method<&FLAnimatedImage::animatedImageWithGIFData>("animatedImageWithGIFData:"),
    method<&FLAnimatedImage::didReceiveMemoryWarning>("didReceiveMemoryWarning:"),
    method<&FLAnimatedImage::growFrameCacheSizeAfterMemoryWarning>(
        "growFrameCacheSizeAfterMemoryWarning:"),
    method<&FLAnimatedImage::resetFrameCacheSizeMaxInternal>("resetFrameCacheSizeMaxInternal"));

constexpr double kDefaultDelayTime = 0.1;
// In single precision, in which delays are compared: 0.02 exactly is long enough.
constexpr float kShortestDelayTime = 0.02F - std::numeric_limits<float>::epsilon();

constexpr double kBytesToMegabytes = 1.0 / (1 << 20);
constexpr double kMostMegabytesForAllFrames = 10;
constexpr double kMostMegabytesForSomeFrames = 75;
constexpr NSUInteger kSomeFrames = 5;

constexpr NSUInteger kCacheSizeUnderPressure = 1;
constexpr NSUInteger kCacheSizeAfterPressure = 2;
constexpr double kSecondsToGrow = 2;
constexpr double kSecondsToReset = 3;
// After more warnings than this the system is not believed any more to have memory to spare.
constexpr NSUInteger kMostWarningsToGrowAfter = 3;

NSUInteger optimalFrameCacheSize(const UIImage& poster, NSUInteger frameCount) {
  const double megabytes = static_cast<double>(poster.CGImage()->bytesPerRow()) *
                           poster.size().height * static_cast<double>(frameCount) *
                           kBytesToMegabytes;
  NSUInteger size = 1;
  if (megabytes <= kMostMegabytesForAllFrames) {
    size = frameCount;
  } else if (megabytes <= kMostMegabytesForSomeFrames) {
    size = kSomeFrames;
  }
  return std::min(size, frameCount);
}

// How the frame is drawn: a bitmap has alpha premultiplied, or none at all.
CGImageAlphaInfo bitmapAlphaInfo(CGImageAlphaInfo info) {
  switch (info) {
    case CGImageAlphaInfo::kNone:
    case CGImageAlphaInfo::kOnly:
      return CGImageAlphaInfo::kNoneSkipFirst;
    case CGImageAlphaInfo::kFirst:
      return CGImageAlphaInfo::kPremultipliedFirst;
    case CGImageAlphaInfo::kLast:
      return CGImageAlphaInfo::kPremultipliedLast;
    default:
      return info;
  }
}

}  // namespace

constexpr ClassOf<FLAnimatedImage> FLAnimatedImage::classObject{"FLAnimatedImage", kMethods};

std::shared_ptr<FLAnimatedImage> FLAnimatedImage::animatedImageWithGIFData(
    const std::shared_ptr<NSData>& data) {
  auto image = alloc<FLAnimatedImage>();
  return image->initWithAnimatedGIFData(data) ? image : nullptr;
}

bool FLAnimatedImage::init() {
  return initWithAnimatedGIFData(nullptr);
}

bool FLAnimatedImage::initWithAnimatedGIFData(const std::shared_ptr<NSData>& data) {
  if (!data || data->length() == 0) {
    return false;
  }
  NSObject::init();
  _data = data;
  _imageSource =
      CGImageSource::createWithData(CGImageSource::Data(data, std::addressof(data->bytes())));
  if (!_imageSource || !UTTypeConformsTo(_imageSource->type(), kUTTypeGIF)) {
    return false;
  }
  // Whatever the file says: previews play once.
  _loopCount = 1;
  if (!readFrames()) {
    return false;
  }
  _frameCacheSizeOptimal = optimalFrameCacheSize(*_posterImage, _frameCount);
  _allFramesIndexSet = NSIndexSet::indexSetWithIndexesInRange({0, _frameCount});
  _weakProxy = FLWeakProxy::weakProxyForObject(shared_from_this());
  _weakSelf = cast<FLAnimatedImage>(shared_from_this());
  NSNotificationCenter::defaultCenter().addObserverSelectorNameObject(
      *this, "didReceiveMemoryWarning:", UIApplicationDidReceiveMemoryWarningNotification, nullptr);
  return true;
}

FLAnimatedImage::~FLAnimatedImage() {
  NSNotificationCenter::defaultCenter().removeObserver(*this);
  if (_weakProxy) {
    MainQueue::shared().cancelPreviousPerformRequestsWithTarget(*_weakProxy);
  }
}

bool FLAnimatedImage::readFrames() {
  const NSUInteger count = _imageSource->count();
  _cachedFrames.reserve(count);
  _delayTimes.reserve(count);
  for (NSUInteger i = 0; i < count; ++i) {
    const auto image = UIImage::imageWithCGImage(_imageSource->createImageAtIndex(i));
    if (!image) {
      continue;
    }
    if (i != _cachedFrames.size()) {
      return false;
    }
    if (!_posterImage) {
      _posterImage = image;
      // Decoded here and now: the view always has something to show.
      _posterImage->CGImage()->pixels();
      _size = image->size();
      _posterImageFrameIndex = i;
      _cachedFrames.emplace_back(image);
      _cachedFrameIndexes.addIndex(i);
    } else {
      _cachedFrames.emplace_back(NSNull::null());
    }
    _delayTimes.push_back(delayTimeOf(i));
  }
  _frameCount = _delayTimes.size();
  return _frameCount > 0;
}

double FLAnimatedImage::delayTimeOf(NSUInteger index) const {
  const auto properties = _imageSource->copyPropertiesAtIndex(index);
  double delay = index == 0 ? kDefaultDelayTime : _delayTimes[index - 1];
  if (properties && properties->gif.unclampedDelayTime) {
    delay = *properties->gif.unclampedDelayTime;
  } else if (properties && properties->gif.delayTime) {
    delay = *properties->gif.delayTime;
  }
  return static_cast<float>(delay) < kShortestDelayTime ? kDefaultDelayTime : delay;
}

NSUInteger FLAnimatedImage::frameCacheSizeCurrent() const {
  NSUInteger size = _frameCacheSizeOptimal;
  if (_frameCacheSizeMax != 0 && _frameCacheSizeMax <= size) {
    size = _frameCacheSizeMax;
  }
  if (_frameCacheSizeMaxInternal != 0 && _frameCacheSizeMaxInternal <= size) {
    size = _frameCacheSizeMaxInternal;
  }
  return size;
}

void FLAnimatedImage::setFrameCacheSizeMax(NSUInteger size) {
  setFrameCacheSizeBound(_frameCacheSizeMax, size);
}

void FLAnimatedImage::setFrameCacheSizeMaxInternal(NSUInteger size) {
  setFrameCacheSizeBound(_frameCacheSizeMaxInternal, size);
}

void FLAnimatedImage::setFrameCacheSizeBound(NSUInteger& bound, NSUInteger size) {
  if (size == bound) {
    return;
  }
  const NSUInteger before = frameCacheSizeCurrent();
  bound = size;
  if (before > size) {
    purgeFrameCacheIfNeeded();
  }
}

NSIndexSet FLAnimatedImage::frameIndexesToCache() const {
  const NSUInteger size = frameCacheSizeCurrent();
  if (size == _frameCount) {
    return _allFramesIndexSet;
  }
  const NSUInteger first = std::min(size, _frameCount - _requestedFrameIndex);
  NSIndexSet indexes;
  indexes.addIndexesInRange({_requestedFrameIndex, first});
  indexes.addIndexesInRange({0, size - first});
  indexes.addIndex(_posterImageFrameIndex);
  return indexes;
}

std::shared_ptr<UIImage> FLAnimatedImage::imageLazilyCachedAtIndex(NSUInteger index) {
  if (index >= _frameCount) {
    return nullptr;
  }
  setRequestedFrameIndex(index);
  if (_cachedFrameIndexes.count() < _frameCount) {
    NSIndexSet missing = frameIndexesToCache();
    missing.removeIndexes(_cachedFrameIndexes);
    missing.removeIndexes(_requestedFrameIndexes);
    missing.removeIndex(_posterImageFrameIndex);
    if (missing.count() > 0) {
      addFrameIndexesToCache(missing);
    }
  }
  auto image = cast<UIImage>(_cachedFrames[index]);
  purgeFrameCacheIfNeeded();
  return image;
}

void FLAnimatedImage::addFrameIndexesToCache(const NSIndexSet& indexes) {
  const NSRange first{_requestedFrameIndex, _frameCount - _requestedFrameIndex};
  const NSRange second{0, _requestedFrameIndex};
  _requestedFrameIndexes.addIndexes(indexes);
  if (!_serialQueue) {
    _serialQueue = DispatchQueue::createSerial("animated image frames");
  }
  _serialQueue->async([weak = _weakSelf, indexes, first, second] {
    const auto produce = [&weak](NSUInteger index) {
      const auto self = weak.lock();
      auto image = self ? self->predrawnImageAtIndex(index) : nullptr;
      if (!image) {
        return;
      }
      MainQueue::shared().async([weak, index, image = std::move(image)] {
        if (const auto receiver = weak.lock()) {
          receiver->deliver(index, image);
        }
      });
    };
    indexes.enumerateIndexesInRange(first, produce);
    indexes.enumerateIndexesInRange(second, produce);
  });
}

void FLAnimatedImage::deliver(NSUInteger index, const std::shared_ptr<UIImage>& image) {
  _cachedFrames[index] = image;
  _cachedFrameIndexes.addIndex(index);
  _requestedFrameIndexes.removeIndex(index);
}

std::shared_ptr<UIImage> FLAnimatedImage::predrawnImageAtIndex(NSUInteger index) const {
  const auto image = UIImage::imageWithCGImage(_imageSource->createImageAtIndex(index));
  return image ? predrawnImageFromImage(image) : nullptr;
}

std::shared_ptr<UIImage> FLAnimatedImage::predrawnImageFromImage(
    const std::shared_ptr<UIImage>& image) {
  if (!image->CGImage()) {
    return image;
  }
  constexpr std::size_t kBitsPerComponent = 8;
  const auto space = CGColorSpace::createDeviceRGB();
  const CGSize size = image->size();
  const auto width = static_cast<std::size_t>(size.width);
  const auto height = static_cast<std::size_t>(size.height);
  const std::size_t bytesPerPixel =
      (space.numberOfComponents() * kBitsPerComponent + kBitsPerComponent) / 8;
  const auto context =
      CGBitmapContext::create(width, height, kBitsPerComponent, width * bytesPerPixel, space,
                              bitmapAlphaInfo(image->CGImage()->alphaInfo()));
  if (!context) {
    return image;
  }
  context->drawImage({{}, size}, *image->CGImage());
  auto drawn = UIImage::imageWithCGImageScaleOrientation(context->createImage(), image->scale(),
                                                         image->imageOrientation());
  return drawn ? drawn : image;
}

void FLAnimatedImage::purgeFrameCacheIfNeeded() {
  if (_cachedFrameIndexes.count() <= frameCacheSizeCurrent()) {
    return;
  }
  NSIndexSet surplus = _cachedFrameIndexes;
  surplus.removeIndexes(frameIndexesToCache());
  for (const NSUInteger index : surplus.indexes()) {
    _cachedFrameIndexes.removeIndex(index);
    _cachedFrames[index] = NSNull::null();
  }
}

void FLAnimatedImage::didReceiveMemoryWarning(
    const std::shared_ptr<NSNotification>& /*notification*/) {
  if (!weakSelf()) {
    return;
  }
  setMemoryWarningCount(_memoryWarningCount + 1);
  auto& queue = MainQueue::shared();
  const auto grown = NSNumber::numberWithUnsignedInteger(kCacheSizeAfterPressure);
  queue.cancelPreviousPerformRequestsWithTargetSelectorObject(
      *_weakProxy, "growFrameCacheSizeAfterMemoryWarning:", grown);
  queue.cancelPreviousPerformRequestsWithTargetSelectorObject(
      *_weakProxy, "resetFrameCacheSizeMaxInternal", nullptr);
  setFrameCacheSizeMaxInternal(kCacheSizeUnderPressure);
  if (_memoryWarningCount <= kMostWarningsToGrowAfter) {
    queue.performSelectorWithObjectAfterDelay(
        _weakProxy, "growFrameCacheSizeAfterMemoryWarning:", grown, kSecondsToGrow);
  }
}

void FLAnimatedImage::growFrameCacheSizeAfterMemoryWarning(const std::shared_ptr<NSNumber>& size) {
  setFrameCacheSizeMaxInternal(size->unsignedIntegerValue());
  MainQueue::shared().performSelectorWithObjectAfterDelay(
      _weakProxy, "resetFrameCacheSizeMaxInternal", nullptr, kSecondsToReset);
}

void FLAnimatedImage::resetFrameCacheSizeMaxInternal() {
  setFrameCacheSizeMaxInternal(0);
}

CGSize FLAnimatedImage::sizeForImage(const std::shared_ptr<NSObject>& image) {
  if (const auto still = cast<UIImage>(image)) {
    return still->size();
  }
  const auto animated = cast<FLAnimatedImage>(image);
  return animated ? animated->size() : CGSizeZero;
}

std::string FLAnimatedImage::description() const {
  return NSObject::description() + " size=" + NSStringFromCGSize(_size) +
         " frameCount=" + std::to_string(_frameCount);
}
