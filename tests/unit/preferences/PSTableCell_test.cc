#include "platform/preferences/PSTableCell.h"

#include <cmath>

#include "platform/preferences/PSEditableTableCell.h"
#include "platform/preferences/PSTextFieldSpecifier.h"
#include "platform/uikit/metrics.h"
#include "tests/support/PaneTest.h"
#include "tests/support/bareRow.h"

namespace {

class RowCellTest : public PaneTest {
 protected:
  static std::shared_ptr<PSSpecifier> row(PSCellType type) { return bareRow("Title", type); }

  // A row's cell as a pane would build it, laid out 320 points wide.
  template <class Cell = PSTableCell>
  static std::shared_ptr<Cell> cellOf(const std::shared_ptr<PSSpecifier>& row) {
    auto cell = alloc<Cell>();
    EXPECT_TRUE(cell->initWithStyleReuseIdentifierSpecifier(
        PSTableCell::styleForCellType(row->cellType()), "", row));
    cell->setFrame(CGRectMake(0, 0, 320, 44));
    cell->layoutIfNeeded();
    return cell;
  }

  static std::shared_ptr<PSTableCell> badged(PSCellType type, const char* text) {
    const auto specifier = row(type);
    specifier->setPropertyForKey(PropertyListValue(text), "badgeString");
    return cellOf(specifier);
  }
  static std::shared_ptr<UILabel> badgeOf(const UITableViewCell& cell) {
    return std::dynamic_pointer_cast<UILabel>(cell.contentView()->subviews().back());
  }
};

TEST_F(RowCellTest, ALinkEndsInAnIndicatorAndOtherRowsDoNot) {
  EXPECT_EQ(cellOf(row(PSCellType::kLink))->accessoryType(),
            UITableViewCellAccessoryType::kDisclosureIndicator);
  for (const auto type : {PSCellType::kDefault, PSCellType::kButton, PSCellType::kTitleValue}) {
    EXPECT_EQ(cellOf(row(type))->accessoryType(), UITableViewCellAccessoryType::kNone);
  }
}

TEST_F(RowCellTest, AButtonsTitleIsTintedAndOtherTitlesAreNot) {
  EXPECT_EQ(cellOf(row(PSCellType::kButton))->textLabel()->textColor(), metrics::kTintColor);
  EXPECT_EQ(cellOf(row(PSCellType::kLink))->textLabel()->textColor(), metrics::kTitleColor);
}

TEST_F(RowCellTest, ACellWithoutARowIsEmpty) {
  const auto cell = alloc<PSTableCell>();
  EXPECT_TRUE(
      cell->initWithStyleReuseIdentifierSpecifier(UITableViewCellStyle::kValue1, "", nullptr));
  EXPECT_EQ(cell->textLabel()->text(), "");
  EXPECT_FALSE(cell->isSelectable());
}

TEST_F(RowCellTest, ABadgeIsAPillInWhiteOnRed) {
  const auto cell = badged(PSCellType::kLink, "2 new");
  const auto badge = badgeOf(*cell);
  EXPECT_EQ(badge->text(), "2 new");
  EXPECT_EQ(badge->font(), UIFont::preferredFontForTextStyle(metrics::kBadgeStyle));
  EXPECT_EQ(badge->textColor(), UIColor::whiteColor());
  EXPECT_EQ(badge->textAlignment(), NSTextAlignment::kCenter);
  EXPECT_EQ(badge->backgroundColor(), metrics::kBadgeColor);
  EXPECT_EQ(badge->cornerRadius(), metrics::kBadgeHeight / 2);
}

TEST_F(RowCellTest, ABadgeStandsAtTheRowsEndHalfwayDownAndIsNeverNarrowerThanHigh) {
  const auto cell = badged(PSCellType::kLink, ".");
  const CGFloat content = cell->contentView()->frame().size.width;
  EXPECT_EQ(badgeOf(*cell)->frame(), CGRectMake(content - 22, 11, 22, 22));
  const auto plain = badged(PSCellType::kTitleValue, "wide");
  const CGFloat pill =
      std::ceil(badgeOf(*plain)->sizeThatFits(320).width) + 2 * metrics::kBadgePadding;
  EXPECT_EQ(badgeOf(*plain)->frame(), CGRectMake(320 - metrics::kTextInset - pill, 11, pill, 22));
}

TEST_F(RowCellTest, ALongBadgeLeavesTheTitleItsRoom) {
  const auto cell =
      badged(PSCellType::kLink, "A badge that says much more than a number would say");
  EXPECT_LE(cell->textLabel()->frame().origin.x + cell->textLabel()->frame().size.width,
            badgeOf(*cell)->frame().origin.x);
  EXPECT_GE(cell->textLabel()->frame().size.width, cell->textLabel()->sizeThatFits(1000).width);
}

TEST_F(RowCellTest, BesideALongTitleALongBadgeKeepsAThirdOfTheRow) {
  const auto specifier =
      bareRow("A title that alone would fill the row from end to end", PSCellType::kLink);
  specifier->setPropertyForKey(PropertyListValue("A badge that would fill the row as well"),
                               "badgeString");
  const auto cell = cellOf(specifier);
  EXPECT_EQ(badgeOf(*cell)->frame().size.width,
            cell->contentView()->frame().size.width / 3 - metrics::kTitleDetailGap);
}

TEST_F(RowCellTest, ARowIsSelectableWhenItLeadsSomewhere) {
  EXPECT_FALSE(cellOf(row(PSCellType::kLink))->isSelectable());
  const auto action = row(PSCellType::kButton);
  action->setAction("something");
  EXPECT_TRUE(cellOf(action)->isSelectable());
  const auto pane = bareRow("Title", PSCellType::kLink, "PSListController");
  EXPECT_TRUE(cellOf(pane)->isSelectable());
}

class FieldCellTest : public RowCellTest {
 protected:
  static std::shared_ptr<PSEditableTableCell> fieldCell(const char* title) {
    const auto field = PSTextFieldSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        title, nullptr, "", "", "", PSCellType::kEditText, "");
    field->setPlaceholder("Number");
    field->setKeyboardTypeAutoCapsAutoCorrection(UIKeyboardType::kPhonePad,
                                                 UITextAutocapitalizationType::kWords,
                                                 UITextAutocorrectionType::kYes);
    return cellOf<PSEditableTableCell>(field);
  }
};

TEST_F(FieldCellTest, TheFieldTakesItsPlaceholderAndKeyboardFromTheRow) {
  const auto field = fieldCell("")->textField();
  EXPECT_EQ(field->placeholder(), "Number");
  EXPECT_EQ(field->keyboardType(), UIKeyboardType::kPhonePad);
  EXPECT_EQ(field->autocapitalizationType(), UITextAutocapitalizationType::kWords);
  EXPECT_EQ(field->autocorrectionType(), UITextAutocorrectionType::kYes);
}

TEST_F(FieldCellTest, TheFieldRunsFromInsetToInsetOrFromTheTitlesEnd) {
  EXPECT_EQ(fieldCell("")->textField()->frame(), CGRectMake(15, 0, 290, 44));
  const auto cell = fieldCell("Phone");
  const CGRect title = cell->textLabel()->frame();
  const CGRect field = cell->textField()->frame();
  EXPECT_GT(title.size.width, 0);
  EXPECT_EQ(field.origin.x, title.origin.x + title.size.width + metrics::kTextInset);
  EXPECT_EQ(field.origin.x + field.size.width, 305);
}

TEST_F(FieldCellTest, ATitleThatNeedsAllOfTheRowHasIt) {
  EXPECT_EQ(fieldCell(std::string(100, 'm').c_str())->textLabel()->frame().size.width, 290);
}

}  // namespace
