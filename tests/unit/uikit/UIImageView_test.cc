#include "platform/uikit/UIImageView.h"

#include <gtest/gtest.h>

TEST(UIImageView, OneForAPictureIsAsLargeAndShowsIt) {
  const auto pixels = CGImage::create(PixelBuffer::create(6, 4));
  const auto image = UIImage::imageWithCGImageScaleOrientation(pixels, 2, UIImageOrientation::kUp);
  const auto view = alloc<UIImageView>();
  ASSERT_TRUE(view->initWithImage(image));
  EXPECT_EQ(view->frame(), CGRectMake(0, 0, 3, 2));
  EXPECT_EQ(view->intrinsicContentSize(), (CGSize{3, 2}));
  view->layer().displayIfNeeded();
  EXPECT_EQ(view->layer().contents(), pixels);
}

TEST(UIImageView, OneForNoPictureIsEmpty) {
  const auto view = alloc<UIImageView>();
  ASSERT_TRUE(view->initWithImage(nullptr));
  EXPECT_EQ(view->frame(), CGRectZero);
  EXPECT_EQ(view->intrinsicContentSize(),
            (CGSize{UIViewNoIntrinsicMetric, UIViewNoIntrinsicMetric}));
}
