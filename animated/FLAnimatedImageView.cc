#include "animated/FLAnimatedImageView.h"

#include <limits>

#include "animated/FLWeakProxy.h"
#include "platform/foundation/NSProcessInfo.h"
#include "platform/foundation/method.h"

namespace {

constexpr auto kMethods = methods<FLAnimatedImageView>(
    method<&FLAnimatedImageView::displayDidRefresh>("displayDidRefresh:"),
    method<&FLAnimatedImageView::setAnimatedImage>("setAnimatedImage:"),
    method<&FLAnimatedImageView::frameCount>("frameCount"),
    method<&FLAnimatedImageView::currentFrameIndex>("currentFrameIndex"),
    method<&FLAnimatedImageView::loopCountdown>("loopCountdown"));

constexpr NSUInteger kForEver = std::numeric_limits<NSUInteger>::max();

}  // namespace

constexpr ClassOf<FLAnimatedImageView> FLAnimatedImageView::classObject{"FLAnimatedImageView",
                                                                        kMethods};

FLAnimatedImageView::~FLAnimatedImageView() {
  if (_displayLink) {
    _displayLink->invalidate();
  }
}

void FLAnimatedImageView::setAnimatedImage(const std::shared_ptr<FLAnimatedImage>& image) {
  if (_animatedImage && _animatedImage->isEqual(image.get())) {
    return;
  }
  if (image) {
    UIImageView::setImage(nullptr);
    UIImageView::setHighlighted(false);
    invalidateIntrinsicContentSize();
  } else {
    stopAnimating();
  }
  _animatedImage = image;
  _currentFrame = image ? image->posterImage() : nullptr;
  _currentFrameIndex = 0;
  const NSUInteger loops = image ? image->loopCount() : 0;
  _loopCountdown = loops > 0 ? loops : kForEver;
  _accumulator = 0;
  updateShouldAnimate();
  if (_shouldAnimate) {
    startAnimating();
  }
  layer().setNeedsDisplay();
}

std::shared_ptr<UIImage> FLAnimatedImageView::image() const {
  return _animatedImage ? _currentFrame : UIImageView::image();
}

void FLAnimatedImageView::setImage(const std::shared_ptr<UIImage>& image) {
  if (image) {
    setAnimatedImage(nullptr);
  }
  UIImageView::setImage(image);
}

void FLAnimatedImageView::setHighlighted(bool highlighted) {
  if (!_animatedImage) {
    UIImageView::setHighlighted(highlighted);
  }
}

CGSize FLAnimatedImageView::intrinsicContentSize() const {
  if (!_animatedImage) {
    return UIImageView::intrinsicContentSize();
  }
  const auto frame = image();
  return frame ? frame->size() : CGSizeZero;
}

void FLAnimatedImageView::startAnimating() {
  if (!_animatedImage) {
    UIImageView::startAnimating();
    return;
  }
  if (!_displayLink) {
    const auto proxy = FLWeakProxy::weakProxyForObject(shared_from_this());
    _displayLink = CADisplayLink::displayLinkWithTargetSelector(proxy, "displayDidRefresh:");
    // A single processor has enough to do while the user scrolls.
    const bool playsWhileScrolling = NSProcessInfo::processInfo().activeProcessorCount() > 1;
    _displayLink->addToRunLoopForMode(NSRunLoop::mainRunLoop(), playsWhileScrolling
                                                                    ? NSRunLoopCommonModes
                                                                    : NSDefaultRunLoopMode);
  }
  _displayLink->setPaused(false);
}

void FLAnimatedImageView::stopAnimating() {
  if (!_animatedImage) {
    UIImageView::stopAnimating();
    return;
  }
  if (_displayLink) {
    _displayLink->setPaused(true);
  }
  if (const auto delegate = overvationDelegate()) {
    delegate->performAction("didStopAnimation", nullptr);
  }
}

bool FLAnimatedImageView::isAnimating() const {
  return _animatedImage ? _displayLink && !_displayLink->isPaused() : UIImageView::isAnimating();
}

void FLAnimatedImageView::didMoveToSuperview() {
  UIImageView::didMoveToSuperview();
  startOrStopAnimating();
}

void FLAnimatedImageView::didMoveToWindow() {
  UIImageView::didMoveToWindow();
  startOrStopAnimating();
}

void FLAnimatedImageView::startOrStopAnimating() {
  updateShouldAnimate();
  if (_shouldAnimate) {
    startAnimating();
  } else {
    stopAnimating();
  }
}

void FLAnimatedImageView::updateShouldAnimate() {
  _shouldAnimate = _animatedImage && window() && superview();
}

void FLAnimatedImageView::displayLayer(CALayer& layer) {
  const auto frame = image();
  layer.setContents(frame ? frame->CGImage() : nullptr);
}

void FLAnimatedImageView::displayDidRefresh(const std::shared_ptr<CADisplayLink>& displayLink) {
  if (!_shouldAnimate) {
    return;
  }
  const auto frame = _animatedImage->imageLazilyCachedAtIndex(_currentFrameIndex);
  if (!frame) {
    return;
  }
  _currentFrame = frame;
  if (_needsDisplayWhenImageBecomesAvailable) {
    layer().setNeedsDisplay();
    _needsDisplayWhenImageBecomesAvailable = false;
  }
  _accumulator += displayLink->duration();
  const auto& delays = _animatedImage->delayTimes();
  // Delays count in single precision, sums of refreshes in double.
  const auto delay = [&] {
    return static_cast<double>(static_cast<float>(delays[_currentFrameIndex]));
  };
  while (_accumulator >= delay()) {
    _accumulator -= delay();
    ++_currentFrameIndex;
    if (_currentFrameIndex >= _animatedImage->frameCount()) {
      --_loopCountdown;
      if (_loopCountdown == 0) {
        stopAnimating();
        return;
      }
      _currentFrameIndex = 0;
    }
    _needsDisplayWhenImageBecomesAvailable = true;
  }
}
