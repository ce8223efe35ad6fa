#include "platform/imageio/UTType.h"

#include <gtest/gtest.h>

TEST(UTType, AGIFIsAGIFAndAnImage) {
  EXPECT_TRUE(UTTypeConformsTo("com.compuserve.gif", kUTTypeGIF));
  EXPECT_TRUE(UTTypeConformsTo("COM.CompuServe.GIF", kUTTypeGIF));
  EXPECT_TRUE(UTTypeConformsTo(kUTTypeGIF, kUTTypeImage));
}

TEST(UTType, NothingElseIsAGIF) {
  EXPECT_FALSE(UTTypeConformsTo("public.png", kUTTypeGIF));
  EXPECT_FALSE(UTTypeConformsTo("com.compuserve.gif2", kUTTypeGIF));
  EXPECT_FALSE(UTTypeConformsTo("", kUTTypeGIF));
  EXPECT_FALSE(UTTypeConformsTo(kUTTypeImage, kUTTypeGIF));
}
