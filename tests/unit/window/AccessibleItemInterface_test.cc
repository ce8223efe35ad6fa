#include "settings/accessibility/AccessibleItemInterface.h"

#include <QAccessible>
#include <QQmlComponent>
#include <QSignalSpy>
#include <algorithm>

#include "platform/foundation/method.h"
#include "platform/preferences/PSEditableTableCell.h"
#include "platform/preferences/PSTextFieldSpecifier.h"
#include "platform/uikit/UIActivityIndicatorView.h"
#include "platform/uikit/UIButton.h"
#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UISegmentedControl.h"
#include "platform/uikit/UIWebView.h"
#include "settings/accessibility/AccessibleElement.h"
#include "settings/items/TableCellItem.h"
#include "settings/items/TableItem.h"
#include "tests/unit/window/RowsPane.h"
#include "tests/unit/window/WindowTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ButtonTarget : public Subclass<ButtonTarget, NSObject> {
 public:
  static const ClassOf<ButtonTarget> classObject;
  void pressed() { ++presses; }
  int presses = 0;
};

constexpr auto kButtonTargetMethods =
    methods<ButtonTarget>(method<&ButtonTarget::pressed>("pressed"));
constexpr ClassOf<ButtonTarget> ButtonTarget::classObject{"ButtonTarget", kButtonTargetMethods};

class AccessibleItemInterfaceTest : public WindowTest {
 protected:
  static QAccessibleInterface& told(QQuickItem& item) {
    return *QAccessible::queryAccessibleInterface(&item);
  }
  QAccessibleInterface& told(UIView& view) { return told(itemOf(view)); }
  static std::string nameOf(const QAccessibleInterface& element) {
    return element.text(QAccessible::Name).toStdString();
  }
  static QStringList actionsOf(QAccessibleInterface& element) {
    return element.actionInterface()->actionNames();
  }
  static void doPress(QAccessibleInterface& element) {
    element.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  }
  static std::vector<std::string> namesIn(const QAccessibleInterface& element) {
    std::vector<std::string> names;
    for (int index = 0; index < element.childCount(); ++index) {
      names.push_back(nameOf(*element.child(index)));
    }
    return names;
  }

  void showRows(const PSSpecifiers& rows) {
    pane->setSpecifiers(rows);
    inner->pushViewControllerAnimated(pane, false);
    show(pane->view());
  }
  QAccessibleInterface& toldRow(int index) { return told(*cellAt(*pane, index)); }
  QAccessibleInterface& toldList() { return told(*pane->table()); }
  void showView(const std::shared_ptr<UIView>& view) {
    view->setFrame(CGRectMake(10, 10, 200, 44));
    root->addSubview(view);
    show(root);
  }
  // An element that QML adds around the pages.
  std::unique_ptr<AccessibleElement> element(const char* properties) {
    QQmlComponent component(&qml.engine());
    component.setData(QByteArray("import QtQuick\nimport QuietDial.Settings\nAccessibleElement {") +
                          properties + "}",
                      QmlRuntime::source(QStringLiteral("Element")));
    auto* made = qobject_cast<AccessibleElement*>(component.create());
    EXPECT_TRUE(made) << component.errorString().toStdString();
    made->setParentItem(screen.contentItem());
    made->setSize({100, 44});
    return std::unique_ptr<AccessibleElement>(made);
  }

  std::shared_ptr<RowsPane> pane = allocInit<RowsPane>();
  std::shared_ptr<UIView> root = allocInit<UIView>();
};

TEST_F(AccessibleItemInterfaceTest, ARowThatCanBePressedIsAButtonWithTitleAndValue) {
  const auto row = pane->button("Prefix");
  row->setPropertyForKey(PropertyListValue("#31#"), "value");
  showRows({row});
  auto& element = toldRow(0);
  EXPECT_EQ(element.role(), QAccessible::Button);
  EXPECT_EQ(nameOf(element), "Prefix, hash three one hash");
  EXPECT_TRUE(element.state().focusable);
  EXPECT_FALSE(element.state().checkable);
  EXPECT_EQ(actionsOf(element), QStringList(QAccessibleActionInterface::pressAction()));
  doPress(element);
  EXPECT_THAT(pane->pressed, ElementsAre("Prefix"));
  EXPECT_TRUE(element.state().focused);
  EXPECT_EQ(element.childCount(), 0);  // its texts are its name
}

TEST_F(AccessibleItemInterfaceTest, ARowThatIsOneOfAlternativesIsARadioButton) {
  const auto chosen = pane->button("UK", PSCellType::kListItem);
  chosen->setPropertyForKey(PropertyListValue(true), "checked");
  const auto other = pane->button("USA", PSCellType::kListItem);
  other->setPropertyForKey(PropertyListValue(false), "checked");
  showRows({chosen, other});
  cellAt(*pane, 0)->setAccessoryType(UITableViewCellAccessoryType::kCheckmark);
  turn();
  for (const int index : {0, 1}) {
    EXPECT_EQ(toldRow(index).role(), QAccessible::RadioButton);
    EXPECT_TRUE(toldRow(index).state().checkable);
    EXPECT_EQ(toldRow(index).state().checked, index == 0);
  }
}

TEST_F(AccessibleItemInterfaceTest, ARowThatDoesNothingIsItsText) {
  const auto row = pane->row("Version", PSCellType::kTitleValue);
  row->setPropertyForKey(PropertyListValue("1.0"), "value");
  showRows({row});
  EXPECT_EQ(toldRow(0).role(), QAccessible::StaticText);
  EXPECT_EQ(nameOf(toldRow(0)), "Version, 1.0");
  EXPECT_FALSE(toldRow(0).state().focusable);
  EXPECT_THAT(actionsOf(toldRow(0)), IsEmpty());
}

TEST_F(AccessibleItemInterfaceTest, AFieldIsATextThatCanBeReplaced) {
  const auto row = PSTextFieldSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      "", pane, "", "valueOf:", "", PSCellType::kEditText, "");
  row->setPlaceholder("Enter your prefix");
  row->setPropertyForKey(PropertyListValue("#31#"), "value");
  showRows({row});
  const auto field = cast<PSEditableTableCell>(cellAt(*pane, 0))->textField();
  auto& element = told(*field);
  EXPECT_EQ(element.role(), QAccessible::EditableText);
  EXPECT_EQ(nameOf(element), "Enter your prefix");
  EXPECT_EQ(element.text(QAccessible::Value), QStringLiteral("#31#"));
  EXPECT_TRUE(element.state().editable);
  EXPECT_TRUE(element.state().focusable);
  auto& text = *element.textInterface();
  EXPECT_EQ(text.characterCount(), 4);
  EXPECT_EQ(text.text(1, 3), QStringLiteral("31"));
  auto& editor = *element.editableTextInterface();
  editor.insertText(4, QStringLiteral("9"));
  EXPECT_EQ(field->text(), "#31#9");
  EXPECT_TRUE(field->isFirstResponder());
  turn();
  editor.deleteText(0, 1);
  turn();
  editor.replaceText(0, -1, QStringLiteral("*67"));
  EXPECT_EQ(field->text(), "*67");
  turn();
  text.setCursorPosition(1);
  EXPECT_EQ(text.cursorPosition(), 1);
  text.setCursorPosition(99);
  EXPECT_EQ(text.cursorPosition(), 3);
}

TEST_F(AccessibleItemInterfaceTest, AFieldIsCalledAfterItsRow) {
  showRows({pane->row("Custom", PSCellType::kEditText)});
  EXPECT_EQ(nameOf(told(*cast<PSEditableTableCell>(cellAt(*pane, 0))->textField())), "Custom");
  // The row is none beside its field.
  EXPECT_EQ(toldRow(0).role(), QAccessible::NoRole);
}

TEST_F(AccessibleItemInterfaceTest, OfAGroupTheTitleIsAHeadingAndTheNoteAText) {
  const auto group = PSSpecifier::groupSpecifierWithName("Style");
  group->setPropertyForKey(PropertyListValue("How it works."), "footerText");
  showRows({group, pane->button("a")});
  auto& heading = told(*pane->table()->headerViewForSection(0));
  EXPECT_EQ(heading.role(), QAccessible::Heading);
  EXPECT_EQ(nameOf(heading), "Style");
  EXPECT_EQ(heading.childCount(), 0);
  auto& note = told(*pane->table()->footerViewForSection(0));
  EXPECT_EQ(note.role(), QAccessible::StaticText);
  EXPECT_EQ(nameOf(note), "How it works.");
  EXPECT_THAT(namesIn(toldList()), ElementsAre("Style", "a", "How it works."));
}

TEST_F(AccessibleItemInterfaceTest, AGroupWithoutTextsTellsOfItsRowsAlone) {
  showRows({PSSpecifier::groupSpecifierWithName(""), pane->button("a")});
  EXPECT_EQ(toldList().role(), QAccessible::List);
  EXPECT_EQ(nameOf(toldList()), "Settings");
  EXPECT_THAT(namesIn(toldList()), ElementsAre("a"));
}

TEST_F(AccessibleItemInterfaceTest, RowsHaveTheirPlaceInTheListThoughOneWasBuiltLater) {
  showRows(pane->buttons({"a", "b", "c"}));
  pane->reloadSpecifier(pane->specifierAtIndex(0));
  turn();
  EXPECT_THAT(namesIn(toldList()), ElementsAre("a", "b", "c"));
  for (const int index : {0, 1, 2}) {
    EXPECT_EQ(toldList().indexOfChild(&toldRow(index)), index);
    EXPECT_EQ(toldList().child(index), &toldRow(index));
    EXPECT_EQ(toldRow(index).parent(), &toldList());
  }
  EXPECT_EQ(toldList().child(3), nullptr);
  EXPECT_EQ(toldList().child(-1), nullptr);
  EXPECT_EQ(toldList().parent(), QAccessible::queryAccessibleInterface(&screen));
}

TEST_F(AccessibleItemInterfaceTest, WhatIsHiddenIsNotListed) {
  showRows(pane->buttons({"a", "b", "c"}));
  cellAt(*pane, 1)->setHidden(true);
  turn();
  EXPECT_THAT(namesIn(toldList()), ElementsAre("a", "c"));
  EXPECT_TRUE(toldRow(1).state().invisible);
  EXPECT_EQ(toldList().indexOfChild(&toldRow(1)), -1);
  doPress(toldRow(1));
  EXPECT_THAT(pane->pressed, IsEmpty());
}

TEST_F(AccessibleItemInterfaceTest, ARowBelowTheWindowIsOffTheScreen) {
  std::vector<std::string> names(30, "row");
  showRows(pane->buttons(names));
  EXPECT_FALSE(toldRow(0).state().offscreen);
  EXPECT_TRUE(toldRow(29).state().offscreen);
  EXPECT_EQ(toldRow(1).rect().size(), QSize(kWidth, 44));
  EXPECT_EQ(toldRow(1).rect().y() - toldRow(0).rect().y(), 44);
}

TEST_F(AccessibleItemInterfaceTest, ALabelIsItsTextAndACodeIsSpokenSignBySign) {
  const auto label = allocInit<UILabel>();
  label->setText("Tap and hold");
  showView(label);
  EXPECT_EQ(told(*label).role(), QAccessible::StaticText);
  EXPECT_EQ(nameOf(told(*label)), "Tap and hold");
  label->setText("#31#");
  turn();
  EXPECT_EQ(nameOf(told(*label)), "hash three one hash");
  label->setText("  ");
  turn();
  EXPECT_EQ(told(*label).role(), QAccessible::NoRole);
}

TEST_F(AccessibleItemInterfaceTest, APictureIsToldOfWhereItIsDescribed) {
  const auto picture = allocInit<UIImageView>();
  showView(picture);
  EXPECT_EQ(told(*picture).role(), QAccessible::NoRole);
  picture->setAccessibilityLabel("Animation: a finger swipes");
  turn();
  EXPECT_EQ(told(*picture).role(), QAccessible::Graphic);
  EXPECT_EQ(nameOf(told(*picture)), "Animation: a finger swipes");
}

TEST_F(AccessibleItemInterfaceTest, AButtonIsCalledByItsLabelElseAfterItsPicture) {
  const auto target = allocInit<ButtonTarget>();
  pictures->sizes["/Library/heart.png"] = {20, 20};
  const auto button = allocInit<UIButton>();
  button->setImage(UIImage::imageNamed("/Library/heart.png"));
  button->addTargetActionForControlEvents(target, "pressed", UIControlEvent::kTouchUpInside);
  showView(button);
  auto& element = told(*button);
  EXPECT_EQ(element.role(), QAccessible::Button);
  EXPECT_EQ(nameOf(element), "heart");
  doPress(element);
  EXPECT_EQ(target->presses, 1);
  button->setAccessibilityLabel("Follow");
  button->setEnabled(false);
  turn();
  EXPECT_EQ(nameOf(element), "Follow");
  EXPECT_TRUE(element.state().disabled);
  EXPECT_FALSE(element.state().focusable);
  EXPECT_THAT(actionsOf(element), IsEmpty());
  doPress(element);
  EXPECT_EQ(target->presses, 1);
}

TEST_F(AccessibleItemInterfaceTest, AButtonThatMayBeChosenIsARadioButton) {
  const auto button = allocInit<UIButton>();
  button->setAccessibilitySelected(false);
  showView(button);
  EXPECT_EQ(told(*button).role(), QAccessible::RadioButton);
  EXPECT_TRUE(told(*button).state().checkable);
  EXPECT_FALSE(told(*button).state().checked);
  button->setAccessibilitySelected(true);
  turn();
  EXPECT_TRUE(told(*button).state().checked);
}

TEST_F(AccessibleItemInterfaceTest, ASegmentedControlIsAGroupOfRadioButtons) {
  const auto control = alloc<UISegmentedControl>();
  control->initWithItems({"Swipe", "Hold"});
  control->setSelectedSegmentIndex(1);
  control->setAccessibilityLabel("Dial tab style");
  showView(control);
  auto& group = told(*control);
  EXPECT_EQ(group.role(), QAccessible::Grouping);
  EXPECT_EQ(nameOf(group), "Dial tab style");
  EXPECT_THAT(namesIn(group), ElementsAre("Swipe", "Hold"));
  EXPECT_EQ(group.child(0)->role(), QAccessible::RadioButton);
  EXPECT_FALSE(group.child(0)->state().checked);
  EXPECT_TRUE(group.child(1)->state().checked);
  doPress(*group.child(0));
  turn();
  EXPECT_EQ(control->selectedSegmentIndex(), 0);
  EXPECT_TRUE(group.child(0)->state().checked);
}

TEST_F(AccessibleItemInterfaceTest, AWheelThatTurnsIsBusy) {
  const auto wheel = allocInit<UIActivityIndicatorView>();
  wheel->startAnimating();
  showView(wheel);
  EXPECT_EQ(told(*wheel).role(), QAccessible::Animation);
  EXPECT_EQ(nameOf(told(*wheel)), "Loading");
  EXPECT_TRUE(told(*wheel).state().busy);
}

TEST_F(AccessibleItemInterfaceTest, AWebViewWithoutAPageIsNoElementAndAPlainViewNeverIs) {
  const auto page = allocInit<UIWebView>();
  showView(page);
  EXPECT_EQ(told(*page).role(), QAccessible::NoRole);
  EXPECT_EQ(told(*root).role(), QAccessible::NoRole);
}

TEST_F(AccessibleItemInterfaceTest, AnElementOfTheWindowsOwnIsOfTheKindThatItSays) {
  const std::vector<std::pair<const char*, QAccessible::Role>> kinds{
      {"None", QAccessible::NoRole},     {"Button", QAccessible::Button},
      {"Heading", QAccessible::Heading}, {"Text", QAccessible::StaticText},
      {"Dialog", QAccessible::Dialog},   {"TextArea", QAccessible::EditableText},
      {"Window", QAccessible::Pane},     {"Notification", QAccessible::Notification}};
  for (const auto& [kind, role] : kinds) {
    const auto made = element((std::string("name: 'x'; kind: AccessibleElement.") + kind).c_str());
    EXPECT_EQ(told(*made).role(), role) << kind;
    EXPECT_EQ(nameOf(told(*made)), "x");
    EXPECT_EQ(actionsOf(told(*made)).size(), role == QAccessible::Button ? 1 : 0) << kind;
    EXPECT_EQ(told(*made).state().focusable, role == QAccessible::Button) << kind;
  }
}

TEST_F(AccessibleItemInterfaceTest, AnElementThatIsDisabledIsNotPressed) {
  const auto button = element("kind: AccessibleElement.Button");
  int presses = 0;
  QObject::connect(button.get(), &AccessibleElement::pressed, [&] { ++presses; });
  doPress(told(*button));
  EXPECT_EQ(presses, 1);
  button->setEnabled(false);
  doPress(told(*button));
  EXPECT_EQ(presses, 1);
  EXPECT_THAT(actionsOf(told(*button)), IsEmpty());
}

TEST_F(AccessibleItemInterfaceTest, ATextAreaIsReadAndWrittenThroughItsEditor) {
  const auto area = element(
      "kind: AccessibleElement.TextArea; editor: input; property alias text: input.text;"
      "TextEdit { id: input; text: 'Hello' }");
  auto& text = *told(*area).textInterface();
  EXPECT_EQ(told(*area).text(QAccessible::Value), QStringLiteral("Hello"));
  told(*area).editableTextInterface()->replaceText(0, 1, QStringLiteral("J"));
  EXPECT_EQ(area->property("text").toString(), QStringLiteral("Jello"));
  text.setCursorPosition(2);
  EXPECT_EQ(text.cursorPosition(), 2);
  text.setCursorPosition(-1);
  EXPECT_EQ(text.cursorPosition(), 0);
}

TEST_F(AccessibleItemInterfaceTest, OnlyTextsThatCanBeEditedHaveATextToRead) {
  const auto button = element("kind: AccessibleElement.Button");
  EXPECT_EQ(told(*button).textInterface(), nullptr);
  EXPECT_EQ(told(*button).editableTextInterface(), nullptr);
  EXPECT_TRUE(told(*button).actionInterface());
}

TEST_F(AccessibleItemInterfaceTest, AnElementThatStandsInNoWindowIsInvalid) {
  const auto button = element("kind: AccessibleElement.Button");
  EXPECT_FALSE(told(*button).state().invalid);
  button->setParentItem(nullptr);
  EXPECT_TRUE(told(*button).state().invalid);
}

TEST_F(AccessibleItemInterfaceTest, FocusCanBeGivenWithoutPressing) {
  showRows(pane->buttons({"a", "b"}));
  toldRow(1).actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_TRUE(toldRow(1).state().focused);
  EXPECT_FALSE(toldRow(0).state().focused);
  EXPECT_THAT(pane->pressed, IsEmpty());
}

TEST_F(AccessibleItemInterfaceTest, AnotherNameIsToldOnce) {
  const auto heading = element("kind: AccessibleElement.Heading; name: 'QuietDial'");
  const QSignalSpy names(heading.get(), &AccessibleElement::nameChanged);
  heading->setName(QStringLiteral("Prefixes"));
  heading->setName(QStringLiteral("Prefixes"));
  EXPECT_EQ(nameOf(told(*heading)), "Prefixes");
  EXPECT_EQ(names.count(), 1);
}

}  // namespace
