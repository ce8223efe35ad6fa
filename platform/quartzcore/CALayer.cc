#include "platform/quartzcore/CALayer.h"

#include <utility>

CALayerDelegate::~CALayerDelegate() = default;

void CALayer::setNeedsDisplay() {
  needsDisplay_ = true;
  delegate_.layerChanged(*this);
}

void CALayer::displayIfNeeded() {
  if (!std::exchange(needsDisplay_, false)) {
    return;
  }
  displaying_ = true;
  delegate_.displayLayer(*this);
  displaying_ = false;
}

void CALayer::setContents(std::shared_ptr<const CGImage> contents) {
  contents_ = std::move(contents);
  // Whoever has it displayed shows the contents next.
  if (!displaying_) {
    delegate_.layerChanged(*this);
  }
}
