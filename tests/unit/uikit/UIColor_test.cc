#include "platform/uikit/UIColor.h"

#include <gtest/gtest.h>

TEST(UIColor, EightColoursHaveNames) {
  EXPECT_EQ(UIColor::named("red"), (UIColor{1, 0, 0, 1}));
  EXPECT_EQ(UIColor::named("white"), (UIColor{1, 1, 1, 1}));
  EXPECT_EQ(UIColor::named("black"), (UIColor{0, 0, 0, 1}));
  EXPECT_EQ(UIColor::named("gray"), (UIColor{0.5, 0.5, 0.5, 1}));
  EXPECT_EQ(UIColor::named("lightGray"), UIColor::lightGrayColor());
  EXPECT_EQ(UIColor::named("blue"), (UIColor{0, 0, 1, 1}));
  EXPECT_EQ(UIColor::named("green"), (UIColor{0, 1, 0, 1}));
  EXPECT_EQ(UIColor::named("orange"), (UIColor{1, 0.5, 0, 1}));
}

TEST(UIColor, OtherNamesAreNoColours) {
  for (const auto* name : {"", "Red", "redColor", "purple"}) {
    EXPECT_EQ(UIColor::named(name), std::nullopt) << name;
  }
}
