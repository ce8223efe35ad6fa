#include "platform/quartzcore/CALayer.h"

#include <gtest/gtest.h>

namespace {

class Delegate : public CALayerDelegate {
 public:
  void displayLayer(CALayer& layer) override {
    ++displays;
    layer.setContents(picture);
  }
  void layerChanged(CALayer& /*layer*/) override { ++changes; }

  std::shared_ptr<const CGImage> picture = CGImage::create(PixelBuffer::create(1, 1));
  int displays = 0;
  int changes = 0;
};

TEST(CALayer, ManyRequestsAreDrawnOnce) {
  Delegate delegate;
  CALayer layer(delegate);
  layer.setNeedsDisplay();
  layer.setNeedsDisplay();
  EXPECT_EQ(delegate.displays, 0);
  layer.displayIfNeeded();
  layer.displayIfNeeded();
  EXPECT_EQ(delegate.displays, 1);
  EXPECT_EQ(layer.contents(), delegate.picture);
}

TEST(CALayer, TellsWhenThereIsSomethingToShowButNotWhileItIsBeingShown) {
  Delegate delegate;
  CALayer layer(delegate);
  layer.setNeedsDisplay();
  EXPECT_EQ(delegate.changes, 1);
  layer.displayIfNeeded();
  EXPECT_EQ(delegate.changes, 1);
  layer.setContents(nullptr);
  EXPECT_EQ(delegate.changes, 2);
}

}  // namespace
