#pragma once

#include <memory>

#include "animated/FLAnimatedImage.h"
#include "platform/foundation/Subclass.h"
#include "platform/quartzcore/CADisplayLink.h"
#include "platform/uikit/UIImageView.h"

/// An image view that plays an animated image while it stands in a window and a superview. It shows
/// the frames one after the other, never leaving one out because it is not decoded yet, and stops
/// with the last one on screen. Without an animated image it is a plain image view. Main thread.
class FLAnimatedImageView : public Subclass<FLAnimatedImageView, UIImageView> {
 public:
  static const ClassOf<FLAnimatedImageView> classObject;
  ~FLAnimatedImageView() override;

  /// Null where the view shows a still image.
  const std::shared_ptr<FLAnimatedImage>& animatedImage() const { return _animatedImage; }
  /// Starts from the first frame, unless it is the image that the view has already.
  void setAnimatedImage(const std::shared_ptr<FLAnimatedImage>& image);

  /// Frames of the animated image; 0 without one.
  NSUInteger frameCount() const { return _animatedImage ? _animatedImage->frameCount() : 0; }

  /// Told `didStopAnimation`, if it has such an action, each time the animation stops; kept weakly.
  std::shared_ptr<NSObject> overvationDelegate() const { return _overvationDelegate.lock(); }
  void setOvervationDelegate(const std::shared_ptr<NSObject>& delegate) {
    _overvationDelegate = delegate;
  }

  /// The frame on screen.
  const std::shared_ptr<UIImage>& currentFrame() const { return _currentFrame; }
  /// The frame to show; the frame count once the animation is over.
  NSUInteger currentFrameIndex() const { return _currentFrameIndex; }
  /// Plays left, counting the current one.
  NSUInteger loopCountdown() const { return _loopCountdown; }
  /// Seconds shown that are not spent on frames yet.
  double accumulator() const { return _accumulator; }
  bool shouldAnimate() const { return _shouldAnimate; }
  /// Whether the next frame is due, but not on screen yet.
  bool needsDisplayWhenImageBecomesAvailable() const {
    return _needsDisplayWhenImageBecomesAvailable;
  }
  /// Null until the first start.
  const std::shared_ptr<CADisplayLink>& displayLink() const { return _displayLink; }

  std::shared_ptr<UIImage> image() const override;
  /// A still image takes the place of the animated one; null leaves that as it is.
  void setImage(const std::shared_ptr<UIImage>& image) override;
  /// Ignored while there is an animated image.
  void setHighlighted(bool highlighted) override;
  CGSize intrinsicContentSize() const override;
  void startAnimating() override;
  void stopAnimating() override;
  bool isAnimating() const override;
  void didMoveToSuperview() override;
  void didMoveToWindow() override;
  void displayLayer(CALayer& layer) override;

  void displayDidRefresh(const std::shared_ptr<CADisplayLink>& displayLink);

 private:
  void updateShouldAnimate();
  void startOrStopAnimating();

  bool _shouldAnimate = false;
  bool _needsDisplayWhenImageBecomesAvailable = false;
  std::shared_ptr<FLAnimatedImage> _animatedImage;
  std::weak_ptr<NSObject> _overvationDelegate;
  std::shared_ptr<UIImage> _currentFrame;
  NSUInteger _currentFrameIndex = 0;
  NSUInteger _loopCountdown = 0;
  double _accumulator = 0;
  std::shared_ptr<CADisplayLink> _displayLink;
};
