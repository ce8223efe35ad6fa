#include "platform/uikit/UITableView.h"

#include "platform/uikit/metrics.h"
#include "tests/support/PaneTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Two sections of two rows; notes every question.
class Rows : public UITableViewDataSource, public UITableViewDelegate {
 public:
  int numberOfSectionsInTableView(UITableView& /*table*/) override { return 2; }
  int tableViewNumberOfRowsInSection(UITableView& /*table*/, int /*section*/) override { return 2; }
  std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& /*table*/,
                                                                  NSIndexPath path) override {
    asked.push_back("cell " + std::to_string(path.section) + std::to_string(path.row));
    auto cell = alloc<UITableViewCell>();
    cell->initWithStyleReuseIdentifier(UITableViewCellStyle::kDefault, "");
    return cell;
  }
  CGFloat tableViewHeightForRowAtIndexPath(UITableView& /*table*/, NSIndexPath path) override {
    asked.push_back("height " + std::to_string(path.section) + std::to_string(path.row));
    return 50;
  }
  std::shared_ptr<UIView> tableViewViewForHeaderInSection(UITableView& /*table*/,
                                                          int /*section*/) override {
    return allocInit<UIView>();
  }
  std::shared_ptr<UIView> tableViewViewForFooterInSection(UITableView& /*table*/,
                                                          int /*section*/) override {
    return allocInit<UIView>();
  }
  CGFloat tableViewHeightForHeaderInSection(UITableView& /*table*/, int /*section*/,
                                            UIView& /*header*/) override {
    return 10;
  }
  CGFloat tableViewHeightForFooterInSection(UITableView& /*table*/, int /*section*/,
                                            UIView& /*footer*/) override {
    return 5;
  }
  void tableViewDidSelectRowAtIndexPath(UITableView& /*table*/, NSIndexPath /*path*/) override {}

  std::vector<std::string> asked;
};

class TableTest : public PaneTest {
 protected:
  TableTest() {
    table->initWithFrame(CGRectMake(0, 0, 320, 480));
    table->setDataSource(&rows);
    table->setDelegate(&rows);
    table->layoutIfNeeded();
  }
  std::vector<std::string> askedNow() {
    rows.asked.clear();
    table->layoutIfNeeded();
    return rows.asked;
  }

  Rows rows;
  std::shared_ptr<UITableView> table = alloc<UITableView>();
};

TEST_F(TableTest, EveryHeightIsAskedBeforeTheFirstCell) {
  EXPECT_THAT(rows.asked, ElementsAre("height 00", "height 01", "height 10", "height 11", "cell 00",
                                      "cell 01", "cell 10", "cell 11"));
}

TEST_F(TableTest, NothingIsAskedAgainWhileNothingChanged) {
  EXPECT_THAT(askedNow(), IsEmpty());
}

TEST_F(TableTest, ARowThatIsReloadedIsAskedForAlone) {
  const auto kept = table->cellForRowAtIndexPath({0, 0});
  const auto dropped = table->cellForRowAtIndexPath({1, 1});
  table->reloadRowAtIndexPath({1, 1});
  EXPECT_THAT(askedNow(), ElementsAre("height 11", "cell 11"));
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 0}), kept);
  EXPECT_NE(table->cellForRowAtIndexPath({1, 1}), dropped);
  EXPECT_EQ(dropped->superview(), nullptr);
}

TEST_F(TableTest, AnotherWidthAsksForEverythingAgain) {
  table->setFrame(CGRectMake(0, 0, 414, 480));
  EXPECT_EQ(askedNow().size(), 8U);
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 0})->frame().size.width, 414);
}

TEST_F(TableTest, AnotherHeightAsksForNothing) {
  table->setFrame(CGRectMake(0, 0, 320, 600));
  EXPECT_THAT(askedNow(), IsEmpty());
}

TEST_F(TableTest, HeadersRowsAndFootersStandBelowEachOther) {
  EXPECT_EQ(table->headerViewForSection(0)->frame(), CGRectMake(0, 0, 320, 10));
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 1})->frame(), CGRectMake(0, 60, 320, 50));
  EXPECT_EQ(table->footerViewForSection(0)->frame(), CGRectMake(0, 110, 320, 5));
  EXPECT_EQ(table->cellForRowAtIndexPath({1, 0})->frame(), CGRectMake(0, 125, 320, 50));
  EXPECT_EQ(table->contentSize(), (CGSize{320, 230}));
}

TEST_F(TableTest, RowsKnowWhereTheyStandInTheirGroup) {
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 0})->position(), UITableViewCellPosition::kFirst);
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 1})->position(), UITableViewCellPosition::kLast);
}

TEST_F(TableTest, AReloadOfARowThatIsNotThereDoesNothing) {
  table->reloadRowAtIndexPath({7, 0});
  table->reloadRowAtIndexPath({0, -1});
  EXPECT_THAT(askedNow(), IsEmpty());
  EXPECT_EQ(table->cellForRowAtIndexPath({7, 0}), nullptr);
}

TEST_F(TableTest, ACellsPlaceCanBeFound) {
  EXPECT_EQ(table->indexPathForCell(*table->cellForRowAtIndexPath({1, 0})), (NSIndexPath{1, 0}));
}

}  // namespace
