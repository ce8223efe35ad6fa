#include "platform/uikit/UISegmentedControl.h"

#include <gtest/gtest.h>

#include "platform/foundation/Subclass.h"
#include "platform/foundation/method.h"

namespace {

class ChangeListener : public Subclass<ChangeListener, NSObject> {
 public:
  static const ClassOf<ChangeListener> classObject;
  void changed() { ++changes; }
  int changes = 0;
};

constexpr auto kChangeListenerMethods =
    methods<ChangeListener>(method<&ChangeListener::changed>("changed"));

constexpr ClassOf<ChangeListener> ChangeListener::classObject{"ChangeListener",
                                                              kChangeListenerMethods};

class UISegmentedControlTest : public testing::Test {
 protected:
  UISegmentedControlTest() {
    control->initWithItems({"One", "Two", "Three"});
    control->addTargetActionForControlEvents(listener, "changed", UIControlEvent::kValueChanged);
  }

  std::shared_ptr<UISegmentedControl> control = alloc<UISegmentedControl>();
  std::shared_ptr<ChangeListener> listener = allocInit<ChangeListener>();
};

TEST_F(UISegmentedControlTest, NoSegmentIsSelectedAtFirst) {
  EXPECT_EQ(control->selectedSegmentIndex(), UISegmentedControl::kNoSegment);
}

TEST_F(UISegmentedControlTest, SettingTheSelectionSendsNothing) {
  control->setSelectedSegmentIndex(2);
  EXPECT_EQ(control->selectedSegmentIndex(), 2);
  EXPECT_EQ(listener->changes, 0);
}

TEST_F(UISegmentedControlTest, AnIndexWithoutASegmentSelectsNone) {
  for (const std::int64_t index : {std::int64_t{-1}, std::int64_t{3}, std::int64_t{1} << 40,
                                   (std::int64_t{1} << 32) + 1, INT64_MIN, INT64_MAX}) {
    control->setSelectedSegmentIndex(1);
    control->setSelectedSegmentIndex(index);
    EXPECT_EQ(control->selectedSegmentIndex(), UISegmentedControl::kNoSegment) << index;
  }
}

TEST_F(UISegmentedControlTest, ChoosingAnotherSegmentSendsOneChange) {
  control->chooseSegment(1);
  EXPECT_EQ(control->selectedSegmentIndex(), 1);
  EXPECT_EQ(listener->changes, 1);
}

TEST_F(UISegmentedControlTest, ChoosingTheSelectedSegmentAgainSendsNothing) {
  control->setSelectedSegmentIndex(1);
  control->chooseSegment(1);
  EXPECT_EQ(listener->changes, 0);
}

TEST_F(UISegmentedControlTest, ChoosingASegmentThatIsNotThereChangesNothing) {
  control->setSelectedSegmentIndex(1);
  control->chooseSegment(3);
  control->chooseSegment(-1);
  EXPECT_EQ(control->selectedSegmentIndex(), 1);
  EXPECT_EQ(listener->changes, 0);
}

TEST_F(UISegmentedControlTest, ADisabledControlCannotBeChanged) {
  control->setEnabled(false);
  control->chooseSegment(1);
  EXPECT_EQ(control->selectedSegmentIndex(), UISegmentedControl::kNoSegment);
  EXPECT_EQ(listener->changes, 0);
}

}  // namespace
