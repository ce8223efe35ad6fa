#include "platform/uikit/UITextField.h"

#include "platform/foundation/Subclass.h"
#include "platform/foundation/method.h"
#include "tests/support/ChangeCounter.h"
#include "tests/support/PaneTest.h"

namespace {

class EditListener : public Subclass<EditListener, NSObject> {
 public:
  static const ClassOf<EditListener> classObject;
  void ended() { ++count; }
  int count = 0;
};

constexpr auto kEditListenerMethods = methods<EditListener>(method<&EditListener::ended>("ended"));
constexpr ClassOf<EditListener> EditListener::classObject{"EditListener", kEditListenerMethods};

class TextFieldTest : public PaneTest {
 protected:
  TextFieldTest() {
    field->addTargetActionForControlEvents(listener, "ended", UIControlEvent::kEditingDidEnd);
  }
  std::shared_ptr<EditListener> listener = allocInit<EditListener>();
  std::shared_ptr<UITextField> field = allocInit<UITextField>();
};

TEST_F(TextFieldTest, AnEditIsCommittedOnceHoweverTheFocusGoes) {
  field->becomeFirstResponder();
  field->edit("a");
  field->pressReturn();
  field->resignFirstResponder();
  EXPECT_EQ(listener->count, 1);
  EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(TextFieldTest, AnotherFieldsFocusCommitsTheEditFirst) {
  const auto other = allocInit<UITextField>();
  field->becomeFirstResponder();
  field->edit("a");
  other->becomeFirstResponder();
  EXPECT_EQ(listener->count, 1);
  EXPECT_EQ(UITextField::firstResponder(), other);
}

TEST_F(TextFieldTest, ATextSetByTheProgramIsNoEdit) {
  field->becomeFirstResponder();
  field->setText("a");
  field->resignFirstResponder();
  EXPECT_EQ(listener->count, 0);
}

TEST_F(TextFieldTest, EndEditingReachesTheFieldBelowTheViewOnly) {
  const auto view = allocInit<UIView>();
  const auto elsewhere = allocInit<UIView>();
  view->addSubview(field);
  field->becomeFirstResponder();
  elsewhere->endEditing(true);
  EXPECT_TRUE(field->isFirstResponder());
  view->endEditing(true);
  EXPECT_FALSE(field->isFirstResponder());
}

TEST_F(TextFieldTest, WhatIsDrawnOfAFieldIsDrawnAnewWhenItChanges) {
  EXPECT_GT(changesDuring([&] { field->setText("a"); }), 0);
  EXPECT_GT(changesDuring([&] { field->setPlaceholder("a"); }), 0);
  EXPECT_GT(changesDuring([&] { field->setKeyboard(UIKeyboardType::kPhonePad, {}, {}); }), 0);
}

TEST_F(TextFieldTest, ADisabledFieldTakesNoFocus) {
  field->setEnabled(false);
  EXPECT_FALSE(field->becomeFirstResponder());
}

}  // namespace
