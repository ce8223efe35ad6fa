#include "core/rowHeight.h"

#include "platform/uikit/metrics.h"
#include "tests/support/PaneTest.h"

namespace {

// Half as high as the width that it is offered.
class HalfHighCell : public PSTableCell {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }
  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle style, std::string reuseIdentifier,
      const std::shared_ptr<PSSpecifier>& specifier) override {
    ++made;
    return PSTableCell::initWithStyleReuseIdentifierSpecifier(style, std::move(reuseIdentifier),
                                                              specifier);
  }
  CGFloat preferredHeightForWidth(CGFloat width) override { return width / 2; }
  inline static int made = 0;
};

constexpr ClassDescription HalfHighCell::classObject{
    "HalfHighCell", &PSTableCell::classObject, &allocObject<HalfHighCell>, {}};

class Pane : public PSListController {
 public:
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
    auto row = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        name, nullptr, "", "", "", PSCellType::kDefault, "");
    row->setPropertyForKey(&HalfHighCell::classObject, "cellClass");
    if (dynamic) {
      row->setPropertyForKey(PropertyListValue(*dynamic), "dynamicHeight");
    }
    return row;
  }
};

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

TEST_F(RowHeightTest, ADynamicRowIsAskedOfItsCellAtTheContentsWidth) {
  const auto pane = open<Pane>();
  EXPECT_EQ(height(*pane, 2), 160);
}

TEST_F(RowHeightTest, ADynamicRowsHeightFollowsTheTablesWidth) {
  const auto pane = open<Pane>();
  width = 568;
  layOut();
  EXPECT_EQ(height(*pane, 2), 284);
}

TEST_F(RowHeightTest, TheCellThatWasMeasuredIsTheOneThatIsShown) {
  open<Pane>();
  EXPECT_EQ(HalfHighCell::made, 3);
}

}  // namespace
