#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "platform/uikit/UIActivityIndicatorView.h"
#include "platform/uikit/UIButton.h"
#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UIScrollView.h"
#include "platform/uikit/UISegmentedControl.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/UITapGestureRecognizer.h"
#include "tests/support/ChangeCounter.h"

// The host draws a view anew when it is told of a change, and only then.

namespace {

TEST(UIViewChanges, WhatIsSeenOfAnyViewIsDrawnAnew) {
  const auto view = allocInit<UIView>();
  EXPECT_GT(changesDuring([&] { view->setFrame(CGRectMake(1, 0, 0, 0)); }), 0);
  EXPECT_EQ(changesDuring([&] { view->setFrame(CGRectMake(1, 0, 0, 0)); }), 0);
  EXPECT_GT(changesDuring([&] { view->setHidden(true); }), 0);
  EXPECT_EQ(changesDuring([&] { view->setHidden(true); }), 0);
  EXPECT_GT(changesDuring([&] { view->setUserInteractionEnabled(false); }), 0);
  EXPECT_EQ(changesDuring([&] { view->setUserInteractionEnabled(false); }), 0);
  EXPECT_GT(changesDuring([&] { view->setBackgroundColor(UIColor{}); }), 0);
  EXPECT_GT(changesDuring([&] { view->setTintColor(UIColor{}); }), 0);
  EXPECT_GT(changesDuring([&] { view->setCornerRadius(1); }), 0);
  EXPECT_GT(changesDuring([&] { view->setAccessibilityLabel("a"); }), 0);
  EXPECT_GT(changesDuring([&] { view->setAccessibilitySelected(true); }), 0);
  EXPECT_GT(changesDuring([&] { view->setNeedsLayout(); }), 0);
  EXPECT_GT(changesDuring([&] { view->addSubview(allocInit<UIView>()); }), 0);
  EXPECT_GT(changesDuring([&] { view->subviews().front()->removeFromSuperview(); }), 0);
}

TEST(UIViewChanges, WhatIsSeenOfALabelIsDrawnAnew) {
  const auto label = allocInit<UILabel>();
  EXPECT_GT(changesDuring([&] { label->setText("a"); }), 0);
  EXPECT_GT(changesDuring([&] { label->setTextColor(UIColor{}); }), 0);
  EXPECT_GT(changesDuring([&] { label->setFont(UIFont{}); }), 0);
  EXPECT_GT(changesDuring([&] { label->setTextAlignment(NSTextAlignment::kCenter); }), 0);
  EXPECT_GT(changesDuring([&] { label->setNumberOfLines(0); }), 0);
}

TEST(UIViewChanges, WhatIsSeenOfAControlIsDrawnAnew) {
  const auto button = allocInit<UIButton>();
  EXPECT_GT(changesDuring([&] { button->setEnabled(false); }), 0);
  EXPECT_GT(changesDuring([&] { button->setImage(nullptr); }), 0);
  const auto segments = alloc<UISegmentedControl>();
  segments->initWithItems({"a", "b"});
  EXPECT_GT(changesDuring([&] { segments->setSelectedSegmentIndex(1); }), 0);
}

TEST(UIViewChanges, WhatIsSeenOfAScrollViewIsDrawnAnew) {
  const auto view = allocInit<UIScrollView>();
  EXPECT_GT(changesDuring([&] { view->setContentSize({1, 1}); }), 0);
  EXPECT_EQ(changesDuring([&] { view->setContentSize({1, 1}); }), 0);
  EXPECT_GT(changesDuring([&] { view->setScrollEnabled(false); }), 0);
  EXPECT_EQ(changesDuring([&] { view->setScrollEnabled(false); }), 0);
}

TEST(UIViewChanges, WhatIsSeenOfAPictureIsDrawnAnew) {
  const auto view = allocInit<UIImageView>();
  EXPECT_GT(changesDuring([&] { view->setImage(nullptr); }), 0);
  EXPECT_GT(changesDuring([&] { view->setHighlighted(true); }), 0);
  EXPECT_EQ(changesDuring([&] { view->setHighlighted(true); }), 0);
}

TEST(UIViewChanges, AnIndicatorThatBeginsOrEndsIsDrawnAnew) {
  const auto indicator = allocInit<UIActivityIndicatorView>();
  EXPECT_GT(changesDuring([&] { indicator->startAnimating(); }), 0);
  EXPECT_EQ(changesDuring([&] { indicator->startAnimating(); }), 0);
  EXPECT_GT(changesDuring([&] { indicator->stopAnimating(); }), 0);
}

TEST(UIViewChanges, ATableThatIsToLayItsRowsOutAnewSaysSo) {
  const auto table = allocInit<UITableView>();
  EXPECT_GT(changesDuring([&] { table->reloadData(); }), 0);
  EXPECT_GT(changesDuring([&] { table->reloadRowHeights(); }), 0);
}

}  // namespace
