#include "platform/coregraphics/CGGeometry.h"

#include <gtest/gtest.h>

TEST(CGGeometry, SizeTextUsesTheShortestNumbersThatReadBack) {
  EXPECT_EQ(NSStringFromCGSize({320, 44}), "{320, 44}");
  EXPECT_EQ(NSStringFromCGSize({290, 209.99275}), "{290, 209.99275}");
}
