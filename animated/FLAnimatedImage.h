#pragma once

#include <memory>
#include <string>
#include <vector>

#include "animated/FLWeakProxy.h"
#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/NSData.h"
#include "platform/foundation/NSIndexSet.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "platform/foundation/NSNumber.h"
#include "platform/foundation/Subclass.h"
#include "platform/imageio/CGImageSource.h"
#include "platform/uikit/UIImage.h"

/// One animated GIF: its delays and its first frame, read once, and its other frames by index,
/// decoded ahead of time on a serial queue of its own into a bounded cache.
///
/// The cache holds every frame of an animation of at most 10 MB decoded, 5 frames up to 75 MB, and
/// 1 frame beyond; 1 frame after a memory warning, and for good from the fourth warning on. The
/// poster frame is kept besides.
///
/// Main thread, but for the last reference, which may be dropped anywhere.
class FLAnimatedImage : public Subclass<FLAnimatedImage, NSObject> {
 public:
  static const ClassOf<FLAnimatedImage> classObject;
  ~FLAnimatedImage() override;

  /// Null unless the data is a GIF with at least one frame that can be decoded, and with none that
  /// cannot before one that can: such a file leaves no place for the frames after the faulty one.
  static std::shared_ptr<FLAnimatedImage> animatedImageWithGIFData(
      const std::shared_ptr<NSData>& data);
  /// Always false: there is no animated image without data.
  bool init() override;
  /// The data is shared, not copied. False where animatedImageWithGIFData gives null.
  bool initWithAnimatedGIFData(const std::shared_ptr<NSData>& data);

  /// The frame, or null: because it is not decoded yet, and is then on its way, or because there is
  /// no such frame. The frames to be shown after it are asked for as well, as far as the cache may
  /// hold them.
  std::shared_ptr<UIImage> imageLazilyCachedAtIndex(NSUInteger index);

  /// The first frame; never dropped.
  const std::shared_ptr<UIImage>& posterImage() const { return _posterImage; }
  /// The poster's size, in points.
  CGSize size() const { return _size; }
  /// How often it is to be played: once, whatever the file says.
  NSUInteger loopCount() const { return _loopCount; }
  /// Seconds that each frame shows, by frame index; a delay too short for a display is 0.1.
  const std::vector<double>& delayTimes() const { return _delayTimes; }
  NSUInteger frameCount() const { return _frameCount; }
  const std::shared_ptr<NSData>& data() const { return _data; }

  /// Frames that the cache may hold now, beside the poster.
  NSUInteger frameCacheSizeCurrent() const;
  /// What the animation's decoded size allows.
  NSUInteger frameCacheSizeOptimal() const { return _frameCacheSizeOptimal; }
  /// The client's own bound; 0 for none.
  NSUInteger frameCacheSizeMax() const { return _frameCacheSizeMax; }
  void setFrameCacheSizeMax(NSUInteger size);

  /// The size, in points, of a UIImage or an FLAnimatedImage; zero for null and everything else.
  static CGSize sizeForImage(const std::shared_ptr<NSObject>& image);

  /// The class's name, address, size and frame count, for people.
  std::string description() const override;

  // What follows is the cache's own; public so that its bounds can be watched.

  NSUInteger posterImageFrameIndex() const { return _posterImageFrameIndex; }
  NSUInteger requestedFrameIndex() const { return _requestedFrameIndex; }
  void setRequestedFrameIndex(NSUInteger index) { _requestedFrameIndex = index; }
  NSUInteger frameCacheSizeMaxInternal() const { return _frameCacheSizeMaxInternal; }
  void setFrameCacheSizeMaxInternal(NSUInteger size);
  NSUInteger memoryWarningCount() const { return _memoryWarningCount; }
  void setMemoryWarningCount(NSUInteger count) { _memoryWarningCount = count; }
  /// One slot a frame: a UIImage, or NSNull where it is not cached.
  const std::vector<std::shared_ptr<NSObject>>& cachedFrames() const { return _cachedFrames; }
  const NSIndexSet& cachedFrameIndexes() const { return _cachedFrameIndexes; }
  /// Handed to the queue and not delivered yet.
  const NSIndexSet& requestedFrameIndexes() const { return _requestedFrameIndexes; }
  const NSIndexSet& allFramesIndexSet() const { return _allFramesIndexSet; }
  /// Target of the delayed calls, which therefore do not keep the image alive.
  const std::shared_ptr<FLWeakProxy>& weakProxy() const { return _weakProxy; }
  /// Null once the last reference has gone.
  std::shared_ptr<FLAnimatedImage> weakSelf() const { return _weakSelf.lock(); }

  /// The frames to be kept: as many as the cache may hold from the requested one on, wrapping
  /// around at the end, and the poster.
  NSIndexSet frameIndexesToCache() const;
  /// Has the frames decoded in the order in which they will be shown.
  void addFrameIndexesToCache(const NSIndexSet& indexes);
  /// Drops the frames that are not to be kept, if there are more than the cache may hold.
  void purgeFrameCacheIfNeeded();

  /// The frame, decoded and drawn so that showing it costs nothing more. Any thread.
  std::shared_ptr<UIImage> predrawnImageAtIndex(NSUInteger index) const;
  /// The image, drawn once into a bitmap; the image itself where that fails. Any thread.
  static std::shared_ptr<UIImage> predrawnImageFromImage(const std::shared_ptr<UIImage>& image);

  void didReceiveMemoryWarning(const std::shared_ptr<NSNotification>& notification);
  void growFrameCacheSizeAfterMemoryWarning(const std::shared_ptr<NSNumber>& size);
  void resetFrameCacheSizeMaxInternal();

 private:
  bool readFrames();
  double delayTimeOf(NSUInteger index) const;
  void setFrameCacheSizeBound(NSUInteger& bound, NSUInteger size);
  void deliver(NSUInteger index, const std::shared_ptr<UIImage>& image);

  std::shared_ptr<CGImageSource> _imageSource;
  std::shared_ptr<DispatchQueue> _serialQueue;
  std::shared_ptr<UIImage> _posterImage;
  NSUInteger _loopCount = 0;
  std::vector<double> _delayTimes;
  NSUInteger _frameCount = 0;
  NSUInteger _frameCacheSizeMax = 0;
  std::shared_ptr<NSData> _data;
  NSUInteger _frameCacheSizeOptimal = 0;
  NSUInteger _frameCacheSizeMaxInternal = 0;
  NSUInteger _requestedFrameIndex = 0;
  NSUInteger _posterImageFrameIndex = 0;
  std::vector<std::shared_ptr<NSObject>> _cachedFrames;
  NSIndexSet _cachedFrameIndexes;
  NSIndexSet _requestedFrameIndexes;
  NSIndexSet _allFramesIndexSet;
  NSUInteger _memoryWarningCount = 0;
  std::shared_ptr<FLWeakProxy> _weakProxy;
  std::weak_ptr<FLAnimatedImage> _weakSelf;
  CGSize _size;
};
