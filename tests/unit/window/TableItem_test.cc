#include "settings/items/TableItem.h"

#include <QSignalSpy>
#include <algorithm>

#include "platform/foundation/NSRunLoop.h"
#include "platform/preferences/PSEditableTableCell.h"
#include "settings/items/TableCellItem.h"
#include "tests/unit/window/RowsPane.h"
#include "tests/unit/window/WindowTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TableItemTest : public WindowTest {
 protected:
  void showRows(const PSSpecifiers& rows) {
    pane->setSpecifiers(rows);
    inner->pushViewControllerAnimated(pane, false);
    show(pane->view());
  }
  void showButtons(const std::vector<std::string>& names) { showRows(pane->buttons(names)); }
  // Rows "0", "1" and so on, 44 points high each.
  void showNumbers(int count) {
    std::vector<std::string> names;
    for (int number = 0; number < count; ++number) {
      names.push_back(std::to_string(number));
    }
    showButtons(names);
  }

  TableItem& table() { return itemOf<TableItem>(*pane->table()); }
  TableCellItem& rowAt(int index) { return itemOf<TableCellItem>(*cellAt(*pane, index)); }
  UITextField& fieldAt(int index) {
    return *cast<PSEditableTableCell>(cellAt(*pane, index))->textField();
  }
  // The title of the row that the keyboard is on; empty where it is on none.
  std::string focusedRow() const {
    const auto* row = qobject_cast<const TableCellItem*>(screen.activeFocusItem());
    return row ? row->title().toStdString() : "";
  }
  std::string focusedAfter(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    press(key, modifiers);
    return focusedRow();
  }
  std::vector<std::string> tabStops() {
    std::vector<std::string> titles;
    for (int index = 0; index < static_cast<int>(pane->specifiers().size()); ++index) {
      if (rowAt(index).activeFocusOnTab()) {
        titles.push_back(rowAt(index).title().toStdString());
      }
    }
    return titles;
  }
  static bool isTracked() {
    const auto& loop = NSRunLoop::mainRunLoop();
    return loop.serves(UITrackingRunLoopMode) && !loop.serves(NSDefaultRunLoopMode);
  }
  bool isInSight(const QQuickItem& row) {
    const auto* flickable = table().container()->parentItem();
    const qreal top = flickable->property("contentY").toReal();
    return row.y() >= top && row.y() + row.height() <= top + flickable->height();
  }

  std::shared_ptr<RowsPane> pane = allocInit<RowsPane>();
};

TEST_F(TableItemTest, TheArrowsGoFromRowToRowAndStayAtTheEnds) {
  showNumbers(3);
  EXPECT_EQ(screen.activeFocusItem(), &table());
  EXPECT_EQ(focusedAfter(Qt::Key_Down), "0");
  EXPECT_EQ(focusedAfter(Qt::Key_Down), "1");
  EXPECT_EQ(focusedAfter(Qt::Key_Down), "2");
  EXPECT_EQ(focusedAfter(Qt::Key_Down), "2");
  EXPECT_EQ(focusedAfter(Qt::Key_Up), "1");
  EXPECT_EQ(focusedAfter(Qt::Key_Up), "0");
  EXPECT_EQ(focusedAfter(Qt::Key_Up), "0");
}

TEST_F(TableItemTest, UpBeginsAtTheLastRow) {
  showNumbers(3);
  EXPECT_EQ(focusedAfter(Qt::Key_Up), "2");
}

TEST_F(TableItemTest, HomeAndEndGoToTheFirstAndTheLastRow) {
  showNumbers(4);
  EXPECT_EQ(focusedAfter(Qt::Key_End), "3");
  EXPECT_EQ(focusedAfter(Qt::Key_Home), "0");
}

TEST_F(TableItemTest, APageKeyGoesOnByFourFifthsOfWhatIsInSight) {
  showNumbers(30);
  EXPECT_EQ(focusedAfter(Qt::Key_Down), "0");
  // 0.8 * 480 points are 8.7 rows.
  EXPECT_EQ(focusedAfter(Qt::Key_PageDown), "9");
  EXPECT_EQ(focusedAfter(Qt::Key_PageDown), "18");
  EXPECT_EQ(focusedAfter(Qt::Key_PageDown), "27");
  EXPECT_EQ(focusedAfter(Qt::Key_PageDown), "29");
  EXPECT_EQ(focusedAfter(Qt::Key_PageUp), "20");
  EXPECT_EQ(focusedAfter(Qt::Key_PageUp), "11");
  EXPECT_EQ(focusedAfter(Qt::Key_PageUp), "2");
  EXPECT_EQ(focusedAfter(Qt::Key_PageUp), "0");
}

TEST_F(TableItemTest, TheKeypadCountsAndOtherModifiersDoNot) {
  showNumbers(3);
  EXPECT_EQ(focusedAfter(Qt::Key_Down, Qt::KeypadModifier), "0");
  EXPECT_EQ(focusedAfter(Qt::Key_End, Qt::ShiftModifier), "2");
  for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
    EXPECT_FALSE(press(Qt::Key_Home, modifier));
    EXPECT_EQ(focusedRow(), "2");
  }
}

TEST_F(TableItemTest, RowsThatDoNothingAndRowsOutOfSightArePassedOver) {
  showRows({pane->row("still", PSCellType::kTitleValue), pane->button("a"), pane->button("hidden"),
            pane->row("still, too", PSCellType::kDefault), pane->button("b")});
  cellAt(*pane, 2)->setHidden(true);
  turn();
  EXPECT_EQ(focusedAfter(Qt::Key_Down), "a");
  EXPECT_EQ(focusedAfter(Qt::Key_Down), "b");
  EXPECT_EQ(focusedAfter(Qt::Key_Home), "a");
}

TEST_F(TableItemTest, WithoutARowToGoToKeysAreLeftToOthers) {
  showRows({pane->row("still", PSCellType::kTitleValue)});
  for (const auto key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End, Qt::Key_PageDown}) {
    EXPECT_FALSE(press(key));
  }
}

TEST_F(TableItemTest, AFieldTakesTheKeyboardInItsRowAndTheArrowsGoOnFromThere) {
  showRows({pane->button("a"), pane->row("", PSCellType::kEditText), pane->button("b")});
  EXPECT_EQ(focusedAfter(Qt::Key_Down), "a");
  press(Qt::Key_Down);
  EXPECT_TRUE(fieldAt(1).isFirstResponder());
  typeLetters(QStringLiteral("ba"));
  EXPECT_EQ(fieldAt(1).text(), "ba");
  EXPECT_EQ(focusedAfter(Qt::Key_Down), "b");
  EXPECT_FALSE(fieldAt(1).isFirstResponder());
  press(Qt::Key_Up);
  EXPECT_TRUE(fieldAt(1).isFirstResponder());
}

TEST_F(TableItemTest, TypingGoesToTheRowThatBeginsSo) {
  showButtons({"Algeria", "Argentina", "Austria", "Belgium", "UK"});
  typeLetters(QStringLiteral("ar"));
  EXPECT_EQ(focusedRow(), "Argentina");
  clock->advance(2);
  typeLetters(QStringLiteral("AUS"));
  EXPECT_EQ(focusedRow(), "Austria");
}

TEST_F(TableItemTest, TheSameLetterAgainGoesToTheNextRowThatBeginsWithIt) {
  showButtons({"Algeria", "Argentina", "Belgium", "Austria"});
  typeLetters(QStringLiteral("a"));
  EXPECT_EQ(focusedRow(), "Algeria");
  typeLetters(QStringLiteral("A"));
  EXPECT_EQ(focusedRow(), "Argentina");
  typeLetters(QStringLiteral("a"));
  EXPECT_EQ(focusedRow(), "Austria");
  typeLetters(QStringLiteral("a"));
  EXPECT_EQ(focusedRow(), "Algeria");
}

TEST_F(TableItemTest, AfterAPauseOfASecondAnotherWordBegins) {
  showButtons({"Algeria", "Austria", "UK"});
  typeLetters(QStringLiteral("a"));
  clock->advance(1);
  typeLetters(QStringLiteral("u"));
  EXPECT_EQ(focusedRow(), "Austria");
  clock->advance(1.001);
  typeLetters(QStringLiteral("u"));
  EXPECT_EQ(focusedRow(), "UK");
}

TEST_F(TableItemTest, WhatNoRowBeginsWithIsLeftToOthers) {
  showButtons({"Algeria", "UK"});
  typeLetters(QStringLiteral("u"));
  clock->advance(2);
  EXPECT_FALSE(typeLetters(QStringLiteral("x")));
  EXPECT_EQ(focusedRow(), "UK");
  clock->advance(2);
  EXPECT_FALSE(press(Qt::Key_A, Qt::ControlModifier, QStringLiteral("a")));
  EXPECT_FALSE(press(Qt::Key_A, Qt::AltModifier, QStringLiteral("a")));
  EXPECT_FALSE(press(Qt::Key_Backspace, Qt::NoModifier, QStringLiteral("\b")));
  EXPECT_EQ(focusedRow(), "UK");
}

TEST_F(TableItemTest, NoWordBeginsWithABlank) {
  showButtons({" a", "b"});
  EXPECT_FALSE(press(Qt::Key_Space, Qt::NoModifier, QStringLiteral(" ")));
  typeLetters(QStringLiteral("b"));
  EXPECT_EQ(focusedRow(), "b");
}

TEST_F(TableItemTest, ReturnAndTheBlankPressTheRowOnceHoweverLongTheyAreHeld) {
  showButtons({"a", "b"});
  press(Qt::Key_Down);
  press(Qt::Key_Return);
  press(Qt::Key_Down);
  press(Qt::Key_Space);
  EXPECT_TRUE(press(Qt::Key_Return, Qt::NoModifier, {}, true));
  press(Qt::Key_Enter, Qt::KeypadModifier);
  press(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_THAT(pane->pressed, ElementsAre("a", "b", "b"));
}

TEST_F(TableItemTest, TheTabKeyStopsAtOneRow) {
  showNumbers(3);
  EXPECT_THAT(tabStops(), ElementsAre("0"));
  press(Qt::Key_End);
  EXPECT_THAT(tabStops(), ElementsAre("2"));
  rowAt(1).takeFocus(Qt::MouseFocusReason);
  EXPECT_THAT(tabStops(), ElementsAre("1"));
}

TEST_F(TableItemTest, ARowThatIsBuiltAnewKeepsTheKeyboard) {
  showNumbers(4);
  press(Qt::Key_Down);
  press(Qt::Key_Down);
  const QPointer<TableCellItem> former(&rowAt(1));
  pane->reloadSpecifier(pane->specifierAtIndex(1));
  turn();
  EXPECT_TRUE(former.isNull());
  EXPECT_EQ(screen.activeFocusItem(), &rowAt(1));
  EXPECT_TRUE(rowAt(1).isFocusVisible());
  EXPECT_THAT(tabStops(), ElementsAre("1"));
  EXPECT_EQ(focusedAfter(Qt::Key_Down), "2");
}

TEST_F(TableItemTest, ARowThatWasTappedKeepsTheKeyboardUnseen) {
  showNumbers(4);
  rowAt(1).tap();
  EXPECT_THAT(pane->pressed, ElementsAre("1"));
  pane->reloadSpecifier(pane->specifierAtIndex(1));
  turn();
  EXPECT_EQ(screen.activeFocusItem(), &rowAt(1));
  EXPECT_FALSE(rowAt(1).isFocusVisible());
}

TEST_F(TableItemTest, ARowThatIsBuiltAnewWhileTheKeyboardIsElsewhereHasItWhenItComesBack) {
  showNumbers(4);
  press(Qt::Key_End);
  QQuickItem elsewhere(screen.contentItem());
  elsewhere.forceActiveFocus();
  pane->reloadSpecifier(pane->specifierAtIndex(3));
  turn();
  EXPECT_EQ(screen.activeFocusItem(), &elsewhere);
  surface->takeFocus();
  EXPECT_EQ(screen.activeFocusItem(), &rowAt(3));
}

TEST_F(TableItemTest, WhereTheRowHasGoneTheKeyboardIsOnTheFirst) {
  showNumbers(4);
  press(Qt::Key_End);
  pane->setSpecifiers(pane->buttons({"x", "y"}));
  turn();
  EXPECT_EQ(focusedRow(), "x");
}

TEST_F(TableItemTest, ARowInThePlaceOfTheOneThatHadTheKeyboardHasItThen) {
  showNumbers(3);
  press(Qt::Key_End);
  pane->setSpecifiers(pane->buttons({"x", "y", "z"}));
  turn();
  EXPECT_EQ(focusedRow(), "z");
}

TEST_F(TableItemTest, RowsFollowEachOtherFromTheTopThoughOneWasBuiltLater) {
  showNumbers(4);
  pane->reloadSpecifier(pane->specifierAtIndex(1));
  turn();
  EXPECT_EQ(focusedAfter(Qt::Key_Down), "0");
  EXPECT_EQ(focusedAfter(Qt::Key_Down), "1");
  EXPECT_EQ(focusedAfter(Qt::Key_Down), "2");
}

TEST_F(TableItemTest, TheRowThatTheKeyboardGoesToComesIntoSight) {
  showNumbers(30);
  EXPECT_FALSE(isInSight(rowAt(29)));
  press(Qt::Key_End);
  turn();
  EXPECT_TRUE(isInSight(rowAt(29)));
  EXPECT_FALSE(isInSight(rowAt(0)));
  press(Qt::Key_Home);
  turn();
  EXPECT_TRUE(isInSight(rowAt(0)));
}

TEST_F(TableItemTest, WhatHasTheKeyboardStaysInSightWhenTheListGetsLower) {
  showNumbers(10);
  press(Qt::Key_End);
  turn();
  EXPECT_TRUE(isInSight(rowAt(9)));
  surface->setHeight(150);
  turn();
  EXPECT_TRUE(isInSight(rowAt(9)));
}

TEST_F(TableItemTest, WhileAFingerMovesTheListTheRunLoopTracksIt) {
  showNumbers(3);
  table().setScrolling(true);
  EXPECT_TRUE(isTracked());
  table().setScrolling(false);
  EXPECT_FALSE(isTracked());
  table().setScrolling(true);
  show(allocInit<UIView>());
  EXPECT_FALSE(isTracked());
}

}  // namespace
