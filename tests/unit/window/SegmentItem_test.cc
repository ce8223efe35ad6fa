#include "settings/items/SegmentItem.h"

#include <algorithm>

#include "platform/foundation/method.h"
#include "platform/uikit/UIButton.h"
#include "platform/uikit/UISegmentedControl.h"
#include "settings/appearance/Appearance.h"
#include "settings/items/ButtonItem.h"
#include "settings/items/SegmentedControlItem.h"
#include "tests/unit/window/WindowTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Alternatives that stand side by side: the segments of a control, or buttons of which one is the
// chosen one.
class SegmentItemTest : public WindowTest {
 protected:
  void showSegments(std::vector<std::string> titles, int chosen) {
    control->initWithItems(std::move(titles));
    control->setSelectedSegmentIndex(chosen);
    control->setFrame(CGRectMake(0, 0, 300, 30));
    root->addSubview(control);
    show(root);
  }
  // From left to right.
  std::vector<SegmentItem*> segments() {
    std::vector<SegmentItem*> items;
    for (auto* child : itemOf(*control).childItems()) {
      if (auto* segment = qobject_cast<SegmentItem*>(child)) {
        items.push_back(segment);
      }
    }
    std::ranges::sort(items, {}, [](const auto* item) { return item->x(); });
    return items;
  }
  std::vector<std::string> tabStops() {
    std::vector<std::string> names;
    for (const auto* segment : segments()) {
      if (segment->activeFocusOnTab()) {
        names.push_back(segment->accessibleName().toStdString());
      }
    }
    return names;
  }
  std::string focusedAfter(int key) {
    press(key);
    const auto* item = qobject_cast<const SegmentItem*>(screen.activeFocusItem());
    return item ? item->accessibleName().toStdString() : "";
  }

  std::shared_ptr<UIView> root = allocInit<UIView>();
  std::shared_ptr<UISegmentedControl> control = alloc<UISegmentedControl>();
};

TEST_F(SegmentItemTest, TheTabKeyStopsAtTheChosenOneElseAtTheFirst) {
  showSegments({"Swipe", "Hold", "Show always"}, UISegmentedControl::kNoSegment);
  EXPECT_THAT(tabStops(), ElementsAre("Swipe"));
  control->setSelectedSegmentIndex(1);
  turn();
  EXPECT_THAT(tabStops(), ElementsAre("Hold"));
}

TEST_F(SegmentItemTest, TheTabKeyStopsWhereTheKeyboardIs) {
  showSegments({"Swipe", "Hold", "Show always"}, 0);
  segments()[2]->takeFocus(Qt::TabFocusReason);
  EXPECT_THAT(tabStops(), ElementsAre("Show always"));
  surface->forceActiveFocus();
  EXPECT_THAT(tabStops(), ElementsAre("Swipe"));
}

TEST_F(SegmentItemTest, TheArrowsGoToTheNeighbourAndChooseNothing) {
  showSegments({"Swipe", "Hold", "Show always"}, 0);
  segments()[0]->takeFocus(Qt::TabFocusReason);
  EXPECT_EQ(focusedAfter(Qt::Key_Left), "Swipe");
  EXPECT_EQ(focusedAfter(Qt::Key_Right), "Hold");
  EXPECT_EQ(focusedAfter(Qt::Key_Right), "Show always");
  EXPECT_EQ(focusedAfter(Qt::Key_Right), "Show always");
  EXPECT_EQ(focusedAfter(Qt::Key_Left), "Hold");
  EXPECT_EQ(control->selectedSegmentIndex(), 0);
  EXPECT_FALSE(press(Qt::Key_Right, Qt::AltModifier));
  EXPECT_EQ(focusedAfter(Qt::Key_Right), "Show always");
}

TEST_F(SegmentItemTest, TheBlankAndReturnChoose) {
  showSegments({"Swipe", "Hold", "Show always"}, 0);
  segments()[1]->takeFocus(Qt::TabFocusReason);
  press(Qt::Key_Space);
  EXPECT_EQ(control->selectedSegmentIndex(), 1);
  press(Qt::Key_Right);
  press(Qt::Key_Return);
  turn();
  EXPECT_EQ(control->selectedSegmentIndex(), 2);
  EXPECT_TRUE(segments()[2]->isChosen());
  EXPECT_FALSE(segments()[1]->isChosen());
}

TEST_F(SegmentItemTest, FromRightToLeftTheArrowsGoAsTheyPoint) {
  Appearance::shared().setDirection(Appearance::Direction::kRightToLeft);
  showSegments({"Swipe", "Hold", "Show always"}, 0);
  segments()[2]->takeFocus(Qt::TabFocusReason);
  EXPECT_EQ(focusedAfter(Qt::Key_Right), "Swipe");
  EXPECT_EQ(focusedAfter(Qt::Key_Left), "Hold");
}

TEST_F(SegmentItemTest, ButtonsOfWhichOneIsChosenGoTogetherInTheSameWay) {
  std::vector<std::shared_ptr<UIButton>> buttons;
  for (int number = 0; number < 4; ++number) {
    auto button = allocInit<UIButton>();
    button->setAccessibilityLabel("Button " + std::to_string(number + 1));
    button->setAccessibilitySelected(number == 1);
    button->setFrame(CGRectMake(number * 50, 0, 44, 44));
    root->addSubview(button);
    buttons.push_back(button);
  }
  buttons[2]->setEnabled(false);
  show(root);
  const auto isStop = [this](UIView& view) { return itemOf(view).activeFocusOnTab(); };
  EXPECT_FALSE(isStop(*buttons[0]));
  EXPECT_TRUE(isStop(*buttons[1]));
  itemOf(*buttons[1]).takeFocus(Qt::TabFocusReason);
  press(Qt::Key_Right);
  EXPECT_EQ(screen.activeFocusItem(), &itemOf(*buttons[3]));
  EXPECT_TRUE(isStop(*buttons[3]));
  EXPECT_FALSE(isStop(*buttons[1]));
}

}  // namespace
