#include "platform/uikit/UITableViewCell.h"

#include "platform/uikit/metrics.h"
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

}  // namespace
