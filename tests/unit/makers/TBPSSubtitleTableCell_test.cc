#include "platform/makers/TBPSSubtitleTableCell.h"

#include "platform/uikit/metrics.h"
#include "tests/support/PaneTest.h"

namespace {

class SubtitleCellTest : public PaneTest {
 protected:
  std::shared_ptr<TBPSSubtitleTableCell> cellWith(const std::string& text) {
    const auto row = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        "Title", nullptr, "", "", "", PSCellType::kDefault, "");
    row->setPropertyForKey(PropertyListValue(text), "detailText");
    auto cell = alloc<TBPSSubtitleTableCell>();
    cell->initWithStyleReuseIdentifierSpecifier(UITableViewCellStyle::kDefault, "", row);
    return cell;
  }
};

TEST_F(SubtitleCellTest, TheTextStandsBelowTheTitleWithinTheCell) {
  const auto cell = cellWith("one\ntwo\nthree");
  const CGFloat height = cell->preferredHeightForWidth(320);
  cell->setFrame(CGRectMake(0, 0, 320, height));
  cell->layoutIfNeeded();
  const auto subtitle = cast<UILabel>(cell->contentView()->subviews().back());
  ASSERT_TRUE(subtitle);
  EXPECT_EQ(subtitle->text(), "one\ntwo\nthree");
  const CGRect title = cell->textLabel()->frame();
  const CGRect text = subtitle->frame();
  EXPECT_GE(text.origin.y, title.origin.y + title.size.height);
  EXPECT_LE(text.origin.y + text.size.height, height);
  EXPECT_EQ(text.size.width, 320 - 2 * metrics::kTextInset);
}

TEST_F(SubtitleCellTest, ANarrowerCellIsHigher) {
  const auto cell = cellWith(std::string(120, 'm'));
  EXPECT_GT(cell->preferredHeightForWidth(200), cell->preferredHeightForWidth(600));
}

TEST_F(SubtitleCellTest, TheTextEndsAsFarAboveTheLowerEdgeAsTheTitleBeginsBelowTheUpper) {
  for (const CGFloat cellWidth : {200.0, 250.0, 320.0, 414.0}) {
    const auto cell = cellWith(std::string(120, 'm'));
    const CGFloat height = cell->preferredHeightForWidth(cellWidth);
    cell->setFrame(CGRectMake(0, 0, cellWidth, height));
    cell->layoutIfNeeded();
    const CGRect text = cell->contentView()->subviews().back()->frame();
    EXPECT_DOUBLE_EQ(height - text.origin.y - text.size.height, cell->textLabel()->frame().origin.y)
        << cellWidth;
  }
}

TEST_F(SubtitleCellTest, WithoutATextTheCellIsAnOrdinaryRow) {
  EXPECT_EQ(cellWith("")->preferredHeightForWidth(320), metrics::kRowHeight);
}

}  // namespace
