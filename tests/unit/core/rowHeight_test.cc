#include "core/rowHeight.h"

#include "platform/foundation/Subclass.h"
#include "platform/uikit/metrics.h"
#include "tests/support/HalfHighCell.h"
#include "tests/support/PaneTest.h"
#include "tests/support/bareRow.h"

namespace {

class Pane : public Subclass<Pane, PSListController> {
 public:
  static const ClassOf<Pane> classObject;

  const PSSpecifiers& specifiers() override {
    if (!hasSpecifiers()) {
      setSpecifiers({row("plain", std::nullopt), row("off", false), row("on", true)});
    }
    return keptSpecifiers();
  }
  CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override {
    return heightForRow(*this, table, indexPath);
  }

 private:
  static std::shared_ptr<PSSpecifier> row(const char* name, std::optional<bool> dynamic) {
    auto row = bareRow(name, PSCellType::kDefault);
    row->setPropertyForKey(&HalfHighCell::classObject, "cellClass");
    if (dynamic) {
      row->setPropertyForKey(PropertyListValue(*dynamic), "dynamicHeight");
    }
    return row;
  }
};

constexpr ClassOf<Pane> Pane::classObject{"Pane"};

class RowHeightTest : public PaneTest {
 protected:
  static CGFloat height(PSListController& pane, int row) {
    return cellAt(pane, row)->frame().size.height;
  }
};

TEST_F(RowHeightTest, DynamicHeightSetToFalseGivesTheListsHeightAsWithoutTheProperty) {
  const auto pane = open<Pane>();
  EXPECT_EQ(height(*pane, 0), metrics::kRowHeight);
  EXPECT_EQ(height(*pane, 1), metrics::kRowHeight);
}

TEST_F(RowHeightTest, DynamicHeightSetToFalseLeavesAFixedHeightInForce) {
  const auto pane = open<Pane>();
  for (const int index : {0, 1}) {
    const auto row = pane->specifierAtIndex(index);
    row->setPropertyForKey(PropertyListValue(100), "height");
    pane->reloadSpecifier(row);
    layOut();
    EXPECT_EQ(height(*pane, index), 100);
  }
}

TEST_F(RowHeightTest, ADynamicRowIsAskedOfItsCellAtTheContentsWidth) {
  const auto pane = open<Pane>();
  EXPECT_EQ(height(*pane, 2), 160);
}

TEST_F(RowHeightTest, ADynamicRowsHeightFollowsTheTablesWidth) {
  const auto pane = open<Pane>();
  width = 568;
  layOut();
  EXPECT_EQ(height(*pane, 2), 284);
  EXPECT_EQ(height(*pane, 1), metrics::kRowHeight);
}

TEST_F(RowHeightTest, TheCellThatWasMeasuredIsTheOneThatIsShown) {
  open<Pane>();
  EXPECT_EQ(HalfHighCell::made, 3);
}

}  // namespace
