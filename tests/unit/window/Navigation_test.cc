#include "settings/navigation/Navigation.h"

#include <QSignalSpy>

#include "platform/uikit/UITextField.h"
#include "tests/unit/window/WindowTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NavigationTest : public WindowTest {
 protected:
  std::shared_ptr<UIViewController> push(const char* title, bool animated = false) {
    auto page = allocInit<UIViewController>();
    page->setTitle(title);
    navigation.stack().pushViewControllerAnimated(page, animated);
    return page;
  }
  Page& pageAt(int row) {
    return *navigation.data(navigation.index(row), Qt::UserRole).value<Page*>();
  }
  std::vector<std::string> titles() {
    std::vector<std::string> titles;
    for (int row = 0; row < navigation.rowCount(); ++row) {
      titles.push_back(pageAt(row).title().toStdString());
    }
    return titles;
  }
  std::string backTitleAt(int row) {
    return pageAt(row).property("backTitle").toString().toStdString();
  }

  Navigation navigation;
  QSignalSpy tops{&navigation, &Navigation::topChanged};
  QSignalSpy titleChanges{&navigation, &Navigation::titleChanged};
};

TEST_F(NavigationTest, ThereIsNoPageAtFirst) {
  EXPECT_EQ(navigation.top(), -1);
  EXPECT_EQ(navigation.title(), QString());
  EXPECT_EQ(navigation.rowCount(), 0);
  navigation.back();
  EXPECT_EQ(navigation.top(), -1);
}

TEST_F(NavigationTest, APageThatIsPushedIsOnTop) {
  push("Settings");
  const auto second = push("QuietDial", true);
  EXPECT_EQ(navigation.top(), 1);
  EXPECT_EQ(navigation.topPage(), second);
  EXPECT_EQ(navigation.title(), QStringLiteral("QuietDial"));
  EXPECT_THAT(titles(), ElementsAre("Settings", "QuietDial"));
  EXPECT_EQ(&pageAt(1).controller(), second.get());
  EXPECT_EQ(pageAt(1).view(), second->view());
  ASSERT_EQ(tops.count(), 2);
  EXPECT_FALSE(tops[0][0].toBool());
  EXPECT_TRUE(tops[1][0].toBool());
  EXPECT_EQ(titleChanges.count(), 2);
}

TEST_F(NavigationTest, BackSaysWhereItLeads) {
  push("Settings");
  push("QuietDial");
  push("Prefixes");
  EXPECT_EQ(backTitleAt(0), "");
  EXPECT_EQ(backTitleAt(1), "Settings");
  EXPECT_EQ(backTitleAt(2), "QuietDial");
}

TEST_F(NavigationTest, APageThatWasLeftStaysUntilItHasSlidOutOfSight) {
  push("Settings");
  push("QuietDial");
  navigation.back();
  EXPECT_EQ(navigation.top(), 0);
  EXPECT_EQ(navigation.title(), QStringLiteral("Settings"));
  EXPECT_TRUE(tops.back()[0].toBool());
  EXPECT_THAT(titles(), ElementsAre("Settings", "QuietDial"));
  navigation.slideEnded();
  EXPECT_THAT(titles(), ElementsAre("Settings"));
  navigation.slideEnded();
  EXPECT_THAT(titles(), ElementsAre("Settings"));
}

TEST_F(NavigationTest, TheFirstPageIsNotLeft) {
  const auto first = push("Settings");
  navigation.back();
  EXPECT_EQ(navigation.top(), 0);
  EXPECT_EQ(navigation.topPage(), first);
  EXPECT_EQ(tops.count(), 1);
}

TEST_F(NavigationTest, APageThatIsPushedWhileAnotherSlidesOutTakesItsPlace) {
  push("Settings");
  push("QuietDial");
  navigation.back();
  push("Other", true);
  EXPECT_THAT(titles(), ElementsAre("Settings", "Other"));
  EXPECT_EQ(backTitleAt(1), "Settings");
  EXPECT_EQ(navigation.top(), 1);
}

TEST_F(NavigationTest, OfSeveralPagesThatAreLeftAtOnceTheLastSlidesOut) {
  push("Settings");
  push("QuietDial");
  push("Prefixes");
  navigation.back();
  navigation.back();
  EXPECT_EQ(navigation.top(), 0);
  EXPECT_THAT(titles(), ElementsAre("Settings", "QuietDial"));
}

TEST_F(NavigationTest, WhereNothingSlidesAPageThatWasLeftIsGoneAtOnce) {
  push("Settings");
  push("QuietDial");
  navigation.stack().popViewControllerAnimated(false);
  EXPECT_THAT(titles(), ElementsAre("Settings"));
  EXPECT_FALSE(tops.back()[0].toBool());
  navigation.setAnimated(false);
  push("QuietDial", true);
  EXPECT_FALSE(tops.back()[0].toBool());
  navigation.back();
  EXPECT_FALSE(tops.back()[0].toBool());
  EXPECT_THAT(titles(), ElementsAre("Settings"));
}

TEST_F(NavigationTest, TheListTellsOfEachPageThatComesAndGoes) {
  const QSignalSpy come(&navigation, &Navigation::rowsInserted);
  const QSignalSpy gone(&navigation, &Navigation::rowsRemoved);
  push("Settings");
  push("QuietDial");
  navigation.back();
  EXPECT_EQ(come.count(), 2);
  EXPECT_EQ(gone.count(), 0);
  navigation.slideEnded();
  ASSERT_EQ(gone.count(), 1);
  EXPECT_EQ(gone[0][1].toInt(), 1);
  EXPECT_EQ(gone[0][2].toInt(), 1);
}

TEST_F(NavigationTest, ThereIsNothingBesideThePages) {
  push("Settings");
  EXPECT_EQ(navigation.roleNames().value(Qt::UserRole), "page");
  EXPECT_FALSE(navigation.data(navigation.index(1), Qt::UserRole).isValid());
  EXPECT_FALSE(navigation.data({}, Qt::UserRole).isValid());
  EXPECT_FALSE(navigation.data(navigation.index(0), Qt::DisplayRole).isValid());
  EXPECT_EQ(navigation.rowCount(navigation.index(0)), 0);
}

TEST_F(NavigationTest, ATitleThatChangesIsToldOnce) {
  push("Settings");
  const auto page = push("QuietDial");
  titleChanges.clear();
  navigation.refresh();
  EXPECT_EQ(titleChanges.count(), 0);
  page->setTitle("Other");
  navigation.refresh();
  navigation.refresh();
  EXPECT_EQ(navigation.title(), QStringLiteral("Other"));
  EXPECT_EQ(titleChanges.count(), 1);
}

TEST_F(NavigationTest, TheTitleOfAPageUnderTheTopIsNotTheWindows) {
  const auto page = push("Settings");
  push("QuietDial");
  titleChanges.clear();
  page->setTitle("Other");
  navigation.refresh();
  EXPECT_THAT(titles(), ElementsAre("Other", "QuietDial"));
  EXPECT_EQ(titleChanges.count(), 0);
}

TEST_F(NavigationTest, WhatIsBeingTypedCanBeCommitted) {
  const auto page = push("Settings");
  const auto field = allocInit<UITextField>();
  page->view()->addSubview(field);
  field->becomeFirstResponder();
  navigation.endEditing();
  EXPECT_FALSE(field->isFirstResponder());
  navigation.endEditing();
}

TEST_F(NavigationTest, AStackWhoseWindowHasGoneIsNotFollowed) {
  const auto stack = cast<UINavigationController>(navigation.stack().shared_from_this());
  auto other = std::make_unique<Navigation>();
  const auto otherStack = cast<UINavigationController>(other->stack().shared_from_this());
  other.reset();
  otherStack->pushViewControllerAnimated(allocInit<UIViewController>(), false);
  EXPECT_EQ(navigation.rowCount(), 0);
  EXPECT_NE(stack, otherStack);
}

}  // namespace
