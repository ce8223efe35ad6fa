#include "prefix/prefixTableCell.h"

#include "tests/support/PaneTest.h"
#include "tests/support/bareRow.h"

namespace {

class PrefixTableCellTest : public PaneTest {
 protected:
  static std::shared_ptr<PSSpecifier> row() { return bareRow("Canada", PSCellType::kListItem); }
  static std::shared_ptr<prefixTableCell> cellFor(int checked, const char* detail) {
    const auto row = PrefixTableCellTest::row();
    row->setPropertyForKey(PropertyListValue(checked), "checked");
    if (detail) {
      row->setPropertyForKey(PropertyListValue(detail), "detailText");
    }
    auto cell = alloc<prefixTableCell>();
    EXPECT_TRUE(cell->initWithSpecifier(row));
    return cell;
  }
};

TEST_F(PrefixTableCellTest, ACheckedRowShowsTheMarkAndNoAccessoryView) {
  const auto cell = cellFor(1, "*67");
  EXPECT_EQ(cell->accessoryType(), UITableViewCellAccessoryType::kCheckmark);
  EXPECT_EQ(cell->accessoryView(), nullptr);
  EXPECT_EQ(cell->textLabel()->text(), "Canada");
  EXPECT_EQ(cell->detailTextLabel()->text(), "*67");
  EXPECT_FALSE(cell->detailTextLabel()->isHidden());
}

TEST_F(PrefixTableCellTest, AnUncheckedRowKeepsRoomAtItsEndInTheIndicatorsPlace) {
  const auto cell = cellFor(0, "*67");
  EXPECT_EQ(cell->accessoryType(), UITableViewCellAccessoryType::kDisclosureIndicator);
  ASSERT_NE(cell->accessoryView(), nullptr);
  EXPECT_EQ(cell->accessoryView()->frame(), CGRectMake(0, 0, 24, 11));
  cell->setFrame(CGRectMake(0, 0, 320, 44));
  cell->layoutIfNeeded();
  EXPECT_EQ(cell->accessoryView()->frame(), CGRectMake(0, 0, 24, 11));
  EXPECT_LT(cell->contentView()->frame().size.width, 320);
}

TEST_F(PrefixTableCellTest, ARowWithoutAPrefixLeavesTheLabelEmpty) {
  EXPECT_EQ(cellFor(0, nullptr)->detailTextLabel()->text(), "");
}

TEST_F(PrefixTableCellTest, ARowThatDoesNotSayWhetherItIsCheckedIsNot) {
  auto cell = alloc<prefixTableCell>();
  ASSERT_TRUE(cell->initWithSpecifier(row()));
  EXPECT_NE(cell->accessoryType(), UITableViewCellAccessoryType::kCheckmark);
  EXPECT_NE(cell->accessoryView(), nullptr);
}

TEST_F(PrefixTableCellTest, StyleIdentifierAndRowArePassedOn) {
  const auto specifier = row();
  auto cell = alloc<prefixTableCell>();
  ASSERT_TRUE(cell->initWithStyleReuseIdentifierSpecifier(UITableViewCellStyle::kDefault, "prefix",
                                                          specifier));
  EXPECT_EQ(cell->reuseIdentifier(), "prefix");
  EXPECT_EQ(cell->detailTextLabel(), nullptr);
  EXPECT_EQ(cell->specifier(), specifier);
}

TEST_F(PrefixTableCellTest, FromARowAloneItHasADetailLabelAndNoIdentifier) {
  const auto cell = cellFor(0, "*67");
  EXPECT_EQ(cell->reuseIdentifier(), "");
  EXPECT_NE(cell->detailTextLabel(), nullptr);
}

}  // namespace
