#pragma once

#include <functional>
#include <memory>

#include "platform/api.h"
#include "platform/coregraphics/CGImage.h"

class CALayer;

/// Gives a layer what it shows. A view is its layer's delegate.
class PLATFORM_API CALayerDelegate {
 public:
  virtual ~CALayerDelegate();
  /// The layer is to be drawn anew.
  virtual void displayLayer(CALayer& layer) = 0;
  /// The layer shows something else than before, or is to be drawn anew.
  virtual void layerChanged(CALayer& layer) = 0;
};

/// The picture that a view shows. Main thread.
class PLATFORM_API CALayer {
 public:
  /// The delegate owns the layer and so outlives it.
  explicit CALayer(CALayerDelegate& delegate) : delegate_(delegate) {}

  /// Asks for displayLayer before the layer is next shown. Many requests are one.
  void setNeedsDisplay();
  bool needsDisplay() const { return needsDisplay_; }
  /// For the host, before it shows the layer: has it drawn anew if that was asked for.
  void displayIfNeeded();

  /// Null for nothing.
  const std::shared_ptr<const CGImage>& contents() const { return contents_; }
  void setContents(std::shared_ptr<const CGImage> contents);

 private:
  CALayerDelegate& delegate_;
  std::shared_ptr<const CGImage> contents_;
  bool needsDisplay_ = false;
  bool displaying_ = false;
};
