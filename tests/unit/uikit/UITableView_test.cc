#include "platform/uikit/UITableView.h"

#include <functional>

#include "platform/foundation/Subclass.h"
#include "platform/uikit/metrics.h"
#include "tests/support/PaneTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Counts how often it comes into a superview or leaves one.
class MovedCell : public Subclass<MovedCell, UITableViewCell> {
 public:
  static const ClassOf<MovedCell> classObject;

  void didMoveToSuperview() override { ++moves; }
  int moves = 0;
};

constexpr ClassOf<MovedCell> MovedCell::classObject{"MovedCell"};

// Sections, two at first, of so many rows each; notes every question about a row, and may do
// something when the question of that number comes. Nothing is asked about what is not there.
class Rows : public UITableViewDataSource, public UITableViewDelegate {
 public:
  int numberOfSectionsInTableView(UITableView& /*table*/) override {
    const auto count = sections.size();
    question();
    return static_cast<int>(count);
  }
  int tableViewNumberOfRowsInSection(UITableView& /*table*/, int section) override {
    const int count = sections.at(section);
    question();
    return count;
  }
  std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& /*table*/,
                                                                  NSIndexPath path) override {
    EXPECT_LT(path.row, sections.at(path.section));
    question();
    asked.push_back("cell " + std::to_string(path.section) + std::to_string(path.row));
    auto& kept = cells[std::pair(path.section, path.row)];
    if (!kept) {
      kept = alloc<MovedCell>();
      kept->initWithStyleReuseIdentifier(UITableViewCellStyle::kDefault, "");
    }
    return kept;
  }
  CGFloat tableViewHeightForRowAtIndexPath(UITableView& /*table*/, NSIndexPath path) override {
    EXPECT_LT(path.row, sections.at(path.section));
    question();
    asked.push_back("height " + std::to_string(path.section) + std::to_string(path.row));
    return 50;
  }
  std::shared_ptr<UIView> tableViewViewForHeaderInSection(UITableView& /*table*/,
                                                          int section) override {
    EXPECT_LT(static_cast<std::size_t>(section), sections.size());
    question();
    return allocInit<UIView>();
  }
  std::shared_ptr<UIView> tableViewViewForFooterInSection(UITableView& /*table*/,
                                                          int section) override {
    EXPECT_LT(static_cast<std::size_t>(section), sections.size());
    question();
    return allocInit<UIView>();
  }
  CGFloat tableViewHeightForHeaderInSection(UITableView& /*table*/, int section,
                                            UIView& /*header*/) override {
    EXPECT_LT(static_cast<std::size_t>(section), sections.size());
    question();
    return 10;
  }
  CGFloat tableViewHeightForFooterInSection(UITableView& /*table*/, int section,
                                            UIView& /*footer*/) override {
    EXPECT_LT(static_cast<std::size_t>(section), sections.size());
    question();
    return 5;
  }
  void tableViewDidSelectRowAtIndexPath(UITableView& /*table*/, NSIndexPath /*path*/) override {}

  std::vector<int> sections{2, 2};
  std::vector<std::string> asked;
  /// A row's cell as long as it is in here.
  std::map<std::pair<int, int>, std::shared_ptr<MovedCell>> cells;
  int questions = 0;
  int actsAt = 0;
  std::function<void()> action;

 private:
  void question() {
    if (++questions == actsAt) {
      action();
    }
  }
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

  // How many questions a whole layout asks.
  int questionsOfALayout() {
    rows.questions = 0;
    table->reloadData();
    table->layoutIfNeeded();
    return rows.questions;
  }

  // Every cell is there, in the table and in its place, and nothing else is.
  void expectWhole() {
    std::size_t views = 0;
    CGFloat y = 0;
    for (int section = 0; section < static_cast<int>(rows.sections.size()); ++section) {
      ASSERT_TRUE(table->headerViewForSection(section));
      y += table->headerViewForSection(section)->frame().size.height;
      for (int row = 0; row < rows.sections[section]; ++row) {
        const auto cell = table->cellForRowAtIndexPath({section, row});
        ASSERT_TRUE(cell);
        EXPECT_EQ(cell->superview(), table->wrapperView());
        EXPECT_EQ(cell->frame().origin.y, y);
        y += cell->frame().size.height;
      }
      y += table->footerViewForSection(section)->frame().size.height;
      views += 2 + rows.sections[section];
    }
    EXPECT_EQ(table->headerViewForSection(static_cast<int>(rows.sections.size())), nullptr);
    EXPECT_EQ(table->wrapperView()->subviews().size(), views);
    EXPECT_EQ(table->contentSize().height, y);
  }

  Rows rows;
  std::shared_ptr<UITableView> table = alloc<UITableView>();
};

TEST_F(TableTest, EveryHeightIsAskedBeforeTheFirstCell) {
  EXPECT_THAT(rows.asked, ElementsAre("height 00", "height 01", "height 10", "height 11", "cell 00",
                                      "cell 01", "cell 10", "cell 11"));
}

TEST_F(TableTest, RowsThatChangeWhileTheyAreAskedForAreLaidOutAsTheyThenAre) {
  const std::vector<std::vector<int>> changes{{}, {1}, {0, 1}, {3, 4, 5}};
  const int moments = questionsOfALayout();
  for (int moment = 1; moment <= moments; ++moment) {
    for (const auto& change : changes) {
      SCOPED_TRACE(moment);
      rows.sections = {2, 2};
      questionsOfALayout();
      rows.questions = 0;
      rows.actsAt = moment;
      rows.action = [&] {
        rows.sections = change;
        table->reloadData();
        // Whoever is asked may even ask for a layout.
        table->layoutIfNeeded();
      };
      table->reloadData();
      table->layoutIfNeeded();
      expectWhole();
    }
  }
}

TEST_F(TableTest, ATableThatIsReloadedByEveryQuestionIsStillLaidOutInBoundedTime) {
  const int usual = questionsOfALayout();
  rows.action = [&] {
    ++rows.actsAt;
    table->reloadData();
  };
  rows.actsAt = 1;
  rows.questions = 0;
  table->reloadData();
  table->layoutIfNeeded();
  EXPECT_LT(rows.questions, 10 * usual);
  // Once it comes to rest, the next layout has everything.
  rows.actsAt = 0;
  table->layoutIfNeeded();
  expectWhole();
}

TEST_F(TableTest, ATableWhoseOwnerGoesWhileItIsAskedAsksNobodyElse) {
  const int moments = questionsOfALayout();
  for (int moment = 1; moment <= moments; ++moment) {
    table->setDataSource(&rows);
    table->setDelegate(&rows);
    rows.questions = 0;
    rows.actsAt = moment;
    rows.action = [&] {
      table->setDataSource(nullptr);
      table->setDelegate(nullptr);
    };
    table->reloadData();
    table->layoutIfNeeded();
    EXPECT_EQ(rows.questions, moment);
  }
}

TEST_F(TableTest, ARowThatIsReloadedWhileItsCellIsMadeIsAskedForAgain) {
  questionsOfALayout();
  rows.questions = 0;
  rows.actsAt = 2;  // its height, then its cell
  rows.action = [&] { table->reloadRowAtIndexPath({1, 0}); };
  table->reloadRowAtIndexPath({1, 0});
  table->layoutIfNeeded();
  EXPECT_THAT(askedNow(), ElementsAre("height 10", "cell 10"));
}

TEST_F(TableTest, NothingIsAskedAgainWhileNothingChanged) {
  EXPECT_THAT(askedNow(), IsEmpty());
}

TEST_F(TableTest, ARowThatIsReloadedIsAskedForAlone) {
  const auto kept = table->cellForRowAtIndexPath({0, 0});
  const auto dropped = table->cellForRowAtIndexPath({1, 1});
  rows.cells.erase({1, 1});
  table->reloadRowAtIndexPath({1, 1});
  EXPECT_THAT(askedNow(), ElementsAre("height 11", "cell 11"));
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 0}), kept);
  EXPECT_NE(table->cellForRowAtIndexPath({1, 1}), dropped);
  EXPECT_EQ(dropped->superview(), nullptr);
}

TEST_F(TableTest, AnotherWidthAsksForEveryHeightAgainAndLeavesTheCellsWhereTheyAre) {
  table->setFrame(CGRectMake(0, 0, 414, 480));
  EXPECT_THAT(askedNow(), ElementsAre("height 00", "height 01", "height 10", "height 11"));
  for (const auto& [row, cell] : rows.cells) {
    EXPECT_EQ(cell->moves, 1);
    EXPECT_EQ(cell->frame().size.width, 414);
  }
}

TEST_F(TableTest, AReloadLeavesTheCellsWhereTheyAreThatItIsGivenAgain) {
  const auto dropped = rows.cells[{0, 1}];
  rows.cells.erase({0, 1});
  const auto header = table->headerViewForSection(0);
  table->reloadData();
  EXPECT_THAT(askedNow(), ElementsAre("height 00", "height 01", "height 10", "height 11", "cell 00",
                                      "cell 01", "cell 10", "cell 11"));
  for (const auto& [row, cell] : rows.cells) {
    EXPECT_EQ(cell->moves, 1);
    EXPECT_EQ(cell->superview(), table->wrapperView());
  }
  EXPECT_EQ(dropped->superview(), nullptr);
  EXPECT_NE(table->headerViewForSection(0), header);
  EXPECT_EQ(header->superview(), nullptr);
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
