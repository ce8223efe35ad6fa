#include "platform/uikit/UITableViewCell.h"

#include "platform/uikit/UIApplication.h"
#include "platform/uikit/metrics.h"
#include "tests/support/ChangeCounter.h"
#include "tests/support/PaneTest.h"

namespace {

class CellTest : public PaneTest {
 protected:
  std::shared_ptr<UITableViewCell> laidOut(const char* title, const char* detail, CGFloat cellWidth,
                                           UITableViewCellAccessoryType accessory) {
    auto cell = alloc<UITableViewCell>();
    cell->initWithStyleReuseIdentifier(UITableViewCellStyle::kValue1, "");
    cell->textLabel()->setText(title);
    cell->detailTextLabel()->setText(detail);
    cell->setAccessoryType(accessory);
    cell->setFrame(CGRectMake(0, 0, cellWidth, 44));
    cell->layoutIfNeeded();
    return cell;
  }
  static CGFloat right(const UIView& view) {
    return view.frame().origin.x + view.frame().size.width;
  }
};

TEST_F(CellTest, TitleStandsAtTheInsetAndTheValueEndsAtTheOtherOne) {
  const auto cell = laidOut("Canada", "*67", 320, UITableViewCellAccessoryType::kNone);
  EXPECT_EQ(cell->contentView()->frame(), CGRectMake(0, 0, 320, 44));
  EXPECT_EQ(cell->textLabel()->frame().origin.x, 15);
  EXPECT_EQ(right(*cell->detailTextLabel()), 305);
}

TEST_F(CellTest, AnIndicatorTakesItsWidthFromTheContentView) {
  const auto cell =
      laidOut("Canada", "*67", 320, UITableViewCellAccessoryType::kDisclosureIndicator);
  EXPECT_EQ(cell->contentView()->frame().size.width, 320 - metrics::kDisclosureWidth);
  EXPECT_EQ(right(*cell->detailTextLabel()), cell->contentView()->frame().size.width);
}

TEST_F(CellTest, TheValueGivesWayBeforeTheTitle) {
  const auto cell = laidOut("Hide Caller ID Prefix", "a value that is much too long for the row",
                            320, UITableViewCellAccessoryType::kDisclosureIndicator);
  const auto& title = *cell->textLabel();
  EXPECT_GE(title.frame().size.width,
            std::min(title.sizeThatFits(1e9).width, 272 * metrics::kTitleShare));
  EXPECT_GE(cell->detailTextLabel()->frame().origin.x,
            right(title) + metrics::kTitleDetailGap - 1e-9);
  EXPECT_LE(right(*cell->detailTextLabel()), cell->contentView()->frame().size.width);
}

TEST_F(CellTest, NothingGetsANegativeWidthInAVeryNarrowRow) {
  const auto cell =
      laidOut("Title", "Value", 20, UITableViewCellAccessoryType::kDisclosureIndicator);
  EXPECT_GE(cell->textLabel()->frame().size.width, 0);
  EXPECT_GE(cell->detailTextLabel()->frame().size.width, 0);
}

TEST_F(CellTest, WhatIsDrawnOfACellIsDrawnAnewWhenItChanges) {
  const auto cell = laidOut("Title", "Value", 320, UITableViewCellAccessoryType::kNone);
  EXPECT_GT(changesDuring([&] { cell->setSeparatorInset({1, 2, 3, 4}); }), 0);
  EXPECT_GT(changesDuring([&] { cell->setLayoutMargins({1, 2, 3, 4}); }), 0);
  EXPECT_GT(changesDuring([&] { cell->setPreservesSuperviewLayoutMargins(false); }), 0);
  EXPECT_GT(changesDuring([&] { cell->setPosition(UITableViewCellPosition::kLast); }), 0);
  EXPECT_EQ(changesDuring([&] { cell->setPosition(UITableViewCellPosition::kLast); }), 0);
}

class LargeTextTest : public CellTest {
 protected:
  LargeTextTest() { choose(UIContentSizeCategory::kAccessibilityLarge); }
  static void choose(UIContentSizeCategory category) {
    UIApplication::sharedApplication().setPreferredContentSizeCategory(category);
  }
  static CGFloat bottom(const UIView& view) {
    return view.frame().origin.y + view.frame().size.height;
  }
  // As the table does it: the height that the row wants, then its layout.
  static void layOut(UITableViewCell& cell, CGFloat cellWidth) {
    cell.setFrame(CGRectMake(0, 0, cellWidth, cell.standardHeightForWidth(cellWidth)));
    cell.setNeedsLayout();
    cell.layoutIfNeeded();
  }
  static void expectRoomForTheWholeText(const UILabel& label) {
    const CGSize needed = label.sizeThatFits(label.frame().size.width);
    EXPECT_GE(label.frame().size.width + 1e-9, needed.width) << label.text();
    EXPECT_GE(label.frame().size.height + 1e-9, needed.height) << label.text();
  }
};

TEST_F(LargeTextTest, ARowIsAsHighAsItsTextNeedsAndNeverLowerThanUsual) {
  const auto cell = laidOut("Canada", "*67", 320, UITableViewCellAccessoryType::kNone);
  EXPECT_EQ(cell->textLabel()->font().pointSize, 33);
  EXPECT_GT(cell->standardHeightForWidth(320), metrics::kRowHeight);
  choose(UIContentSizeCategory::kExtraSmall);
  EXPECT_EQ(cell->standardHeightForWidth(320), metrics::kRowHeight);
}

TEST_F(LargeTextTest, TitleAndValueThatFitStandInOneLine) {
  const auto cell = laidOut("Canada", "*67", 320, UITableViewCellAccessoryType::kNone);
  layOut(*cell, 320);
  EXPECT_EQ(cell->textLabel()->frame().origin.y, cell->detailTextLabel()->frame().origin.y);
  EXPECT_EQ(right(*cell->detailTextLabel()), 305);
}

TEST_F(LargeTextTest, TheValueStandsBelowATitleThatLeavesItNoRoomAndNeitherIsCut) {
  for (const CGFloat cellWidth : {280.0, 320.0, 414.0}) {
    const auto cell = laidOut("Systemwide Call Style", "Show always", cellWidth,
                              UITableViewCellAccessoryType::kDisclosureIndicator);
    layOut(*cell, cellWidth);
    const auto& title = *cell->textLabel();
    const auto& value = *cell->detailTextLabel();
    EXPECT_GE(value.frame().origin.y, bottom(title) - 1e-9);
    EXPECT_EQ(value.frame().origin.x, title.frame().origin.x);
    EXPECT_LE(bottom(value), cell->frame().size.height - metrics::kRowTextMargin + 1e-9);
    expectRoomForTheWholeText(title);
    expectRoomForTheWholeText(value);
  }
}

TEST_F(LargeTextTest, ARowThatGetsTheRoomStandsInOneLineAgain) {
  const auto cell = laidOut("Systemwide Call Style", "Show always", 320,
                            UITableViewCellAccessoryType::kDisclosureIndicator);
  layOut(*cell, 320);
  EXPECT_EQ(cell->textLabel()->numberOfLines(), 0);
  layOut(*cell, 900);
  EXPECT_EQ(cell->textLabel()->numberOfLines(), 1);
  EXPECT_EQ(cell->detailTextLabel()->numberOfLines(), 1);
  EXPECT_EQ(cell->detailTextLabel()->textAlignment(), NSTextAlignment::kRight);
  EXPECT_EQ(cell->textLabel()->frame().origin.y, cell->detailTextLabel()->frame().origin.y);
}

TEST_F(LargeTextTest, AtTheUsualSizeARowIsLaidOutInOneLine) {
  choose(UIContentSizeCategory::kLarge);
  const auto cell = laidOut("Systemwide Call Style in a long title", "Show always", 320,
                            UITableViewCellAccessoryType::kDisclosureIndicator);
  EXPECT_EQ(cell->standardHeightForWidth(320), metrics::kRowHeight);
  EXPECT_EQ(cell->textLabel()->frame().origin.y, cell->detailTextLabel()->frame().origin.y);
}

}  // namespace
