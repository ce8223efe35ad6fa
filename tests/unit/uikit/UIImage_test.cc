#include "platform/uikit/UIImage.h"

#include <gtest/gtest.h>

TEST(UIImage, APictureToBeDrawnInAnotherWayIsTheSameOtherwise) {
  const auto pixels = CGImage::create(PixelBuffer::create(6, 4));
  const auto image = UIImage::imageWithCGImageScaleOrientation(pixels, 2, UIImageOrientation::kUp);
  const auto shape = image->imageWithRenderingMode(UIImageRenderingMode::kAlwaysTemplate);
  EXPECT_EQ(shape->renderingMode(), UIImageRenderingMode::kAlwaysTemplate);
  EXPECT_EQ(image->renderingMode(), UIImageRenderingMode::kAutomatic);
  EXPECT_EQ(shape->CGImage(), pixels);
  EXPECT_EQ(shape->scale(), 2);
  EXPECT_EQ(shape->size(), (CGSize{3, 2}));
}
