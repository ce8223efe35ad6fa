#include "settings/mirror/ViewMirror.h"

#include <QPointer>
#include <QSignalSpy>
#include <utility>

#include "platform/foundation/method.h"
#include "platform/uikit/UIActivityIndicatorView.h"
#include "platform/uikit/UIButton.h"
#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UISegmentedControl.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/UITableViewCell.h"
#include "platform/uikit/UITableViewHeaderFooterView.h"
#include "platform/uikit/UITapGestureRecognizer.h"
#include "platform/uikit/UITextField.h"
#include "platform/uikit/UIWebView.h"
#include "settings/appearance/Appearance.h"
#include "tests/unit/window/WindowTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::shared_ptr<UIView> viewAt(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  auto view = allocInit<UIView>();
  view->setFrame(CGRectMake(x, y, width, height));
  return view;
}

class TapCounter : public Subclass<TapCounter, NSObject> {
 public:
  static const ClassOf<TapCounter> classObject;
  void tapped() { ++taps; }
  int taps = 0;
};

constexpr auto kTapCounterMethods = methods<TapCounter>(method<&TapCounter::tapped>("tapped"));
constexpr ClassOf<TapCounter> TapCounter::classObject{"TapCounter", kTapCounterMethods};

// Does something each time that it is laid out.
class LayoutTeller : public Subclass<LayoutTeller, UIView> {
 public:
  static const ClassOf<LayoutTeller> classObject;
  void layoutSubviews() override {
    ++layouts;
    if (laidOut) {
      laidOut();
    }
  }
  int layouts = 0;
  std::function<void()> laidOut;
};

constexpr ClassOf<LayoutTeller> LayoutTeller::classObject{"LayoutTeller"};

class NamedLabel : public Subclass<NamedLabel, UILabel> {
 public:
  static const ClassOf<NamedLabel> classObject;
};

constexpr ClassOf<NamedLabel> NamedLabel::classObject{"NamedLabel"};

class ViewMirrorTest : public WindowTest {
 protected:
  ViewMirrorTest() {
    root->addSubview(first);
    root->addSubview(second);
    show(root);
  }

  std::shared_ptr<TapCounter> countTapsOn(UIView& view) {
    auto counter = allocInit<TapCounter>();
    const auto recognizer = alloc<UITapGestureRecognizer>();
    recognizer->initWithTargetAction(counter, "tapped");
    view.addGestureRecognizer(recognizer);
    return counter;
  }
  const char* kindOf(UIView& view) {
    return mirror.itemFor(view).metaObject()->superClass()->className();
  }

  std::shared_ptr<UIView> root = allocInit<UIView>();
  std::shared_ptr<UIView> first = viewAt(10, 20, 100, 50);
  std::shared_ptr<UIView> second = viewAt(0, 100, 200, 50);
};

TEST_F(ViewMirrorTest, AnItemStandsWhereItsViewDoesAndLooksLikeIt) {
  first->setBackgroundColor(UIColor{1, 0, 0, 1});
  first->setCornerRadius(7);
  second->setHidden(true);
  turn();
  const auto& item = itemOf(*first);
  EXPECT_EQ(item.position(), QPointF(10, 20));
  EXPECT_EQ(item.size(), QSizeF(100, 50));
  EXPECT_EQ(item.color(), QColor(Qt::red));
  EXPECT_EQ(item.radius(), 7);
  EXPECT_TRUE(item.isVisible());
  EXPECT_FALSE(itemOf(*second).isVisible());
  EXPECT_EQ(itemOf(*root).size(), QSizeF(kWidth, kHeight));
}

TEST_F(ViewMirrorTest, AViewThatGoesAndComesBackInOneTurnKeepsItsItem) {
  const QPointer<ViewItem> kept(&itemOf(*first));
  first->removeFromSuperview();
  root->addSubview(first);
  turn();
  EXPECT_EQ(kept, &itemOf(*first));
  EXPECT_EQ(kept->parentItem(), &itemOf(*root));
}

TEST_F(ViewMirrorTest, AViewThatMovesBelowAnotherTakesItsItemAlong) {
  const auto inner = viewAt(0, 0, 10, 10);
  first->addSubview(inner);
  turn();
  const QPointer<ViewItem> kept(&itemOf(*inner));
  // What changed last is read first: once that is the new place, and once the one that was left.
  for (const bool isLeftPlaceFirst : {false, true}) {
    for (const auto& holder : {second, first, second, root}) {
      if (isLeftPlaceFirst) {
        holder->setBackgroundColor(std::nullopt);
      }
      holder->addSubview(inner);
      turn();
      ASSERT_TRUE(kept);
      EXPECT_EQ(kept, &itemOf(*inner));
      EXPECT_EQ(kept->parentItem(), &itemOf(*holder));
    }
  }
}

TEST_F(ViewMirrorTest, AViewThatHasGoneLosesItsItemAndComesBackWithAnother) {
  const auto inner = viewAt(1, 2, 3, 4);
  first->addSubview(inner);
  turn();
  const QPointer<ViewItem> gone(&itemOf(*first));
  const QPointer<ViewItem> goneWithIt(&itemOf(*inner));
  first->removeFromSuperview();
  turn();
  EXPECT_TRUE(gone.isNull());
  EXPECT_TRUE(goneWithIt.isNull());
  EXPECT_THAT(viewsIn(itemOf(*root)), ElementsAre(second.get()));
  root->addSubview(first);
  turn();
  EXPECT_EQ(itemOf(*first).position(), QPointF(10, 20));
  EXPECT_THAT(viewsIn(itemOf(*first)), ElementsAre(inner.get()));
}

TEST_F(ViewMirrorTest, TheItemOfAViewThatIsNoMoreIsEmptyAndSoonGone) {
  const QPointer<ViewItem> item(&itemOf(*first));
  root->setBackgroundColor(UIColor{0, 0, 0, 1});
  first->removeFromSuperview();
  first.reset();
  ASSERT_TRUE(item);
  EXPECT_EQ(item->view(), nullptr);
  EXPECT_FALSE(item->takeOver());
  item->recognizeTap({0, 0});
  turn();
  EXPECT_TRUE(item.isNull());
  EXPECT_THAT(viewsIn(itemOf(*root)), ElementsAre(second.get()));
}

TEST_F(ViewMirrorTest, SiblingsLieAboveEachOtherAsTheirViewsDo) {
  const auto third = viewAt(0, 0, 5, 5);
  root->addSubview(third);
  turn();
  EXPECT_THAT(viewsIn(itemOf(*root)), ElementsAre(first.get(), second.get(), third.get()));
  root->addSubview(second);
  turn();
  EXPECT_THAT(viewsIn(itemOf(*root)), ElementsAre(first.get(), third.get(), second.get()));
  root->addSubview(third);
  root->addSubview(first);
  turn();
  EXPECT_THAT(viewsIn(itemOf(*root)), ElementsAre(second.get(), third.get(), first.get()));
}

TEST_F(ViewMirrorTest, WhatChangesManyTimesInOneTurnIsBroughtOverOnce) {
  const QSignalSpy looks(&itemOf(*first), &ViewItem::lookChanged);
  const QSignalSpy others(&itemOf(*second), &ViewItem::lookChanged);
  const QSignalSpy commits(&mirror, &ViewMirror::committed);
  for (int change = 1; change <= 5; ++change) {
    first->setFrame(CGRectMake(change, 0, 10, 10));
    first->setCornerRadius(change);
  }
  EXPECT_TRUE(mirror.isPending());
  EXPECT_EQ(looks.count(), 0);
  turn();
  EXPECT_EQ(looks.count(), 1);
  EXPECT_EQ(others.count(), 0);
  EXPECT_EQ(commits.count(), 1);
  EXPECT_EQ(itemOf(*first).x(), 5);
}

TEST_F(ViewMirrorTest, NothingIsBroughtOverWhileNothingChanges) {
  const QSignalSpy looks(&itemOf(*first), &ViewItem::lookChanged);
  const QSignalSpy commits(&mirror, &ViewMirror::committed);
  EXPECT_FALSE(mirror.isPending());
  turn();
  first->setFrame(first->frame());
  first->setHidden(false);
  EXPECT_FALSE(mirror.isPending());
  turn();
  EXPECT_EQ(looks.count(), 0);
  EXPECT_EQ(commits.count(), 0);
}

TEST_F(ViewMirrorTest, ACommitThatCannotWaitIsNotRepeatedByTheLoop) {
  const QSignalSpy commits(&mirror, &ViewMirror::committed);
  first->setCornerRadius(3);
  mirror.commit();
  EXPECT_EQ(itemOf(*first).radius(), 3);
  EXPECT_FALSE(mirror.isPending());
  turn();
  EXPECT_EQ(commits.count(), 1);
}

TEST_F(ViewMirrorTest, WhatLayingOutChangesIsShownInTheSameCommit) {
  const auto teller = allocInit<LayoutTeller>();
  teller->laidOut = [this] { second->setFrame(CGRectMake(0, 0, 33, 44)); };
  root->addSubview(teller);
  mirror.commit();
  EXPECT_EQ(itemOf(*second).size(), QSizeF(33, 44));
}

TEST_F(ViewMirrorTest, APageThatNeverSettlesIsShownAsItIs) {
  const auto restless = allocInit<LayoutTeller>();
  restless->laidOut = [view = restless.get()] { view->setNeedsLayout(); };
  root->addSubview(restless);
  first->setCornerRadius(9);
  turn();
  EXPECT_GT(restless->layouts, 1);
  EXPECT_LE(restless->layouts, 10);
  EXPECT_EQ(itemOf(*first).radius(), 9);
  EXPECT_TRUE(itemOf(*restless).isVisible());
}

TEST_F(ViewMirrorTest, ATintHoldsForEverythingBelowThatHasNoneOfItsOwn) {
  const auto inner = viewAt(0, 0, 10, 10);
  const auto tinted = viewAt(0, 0, 10, 10);
  tinted->setTintColor(UIColor{0, 1, 0, 1});
  first->addSubview(inner);
  first->addSubview(tinted);
  turn();
  root->setTintColor(UIColor{1, 0, 0, 1});
  turn();
  EXPECT_EQ(itemOf(*inner).tint(), QColor(Qt::red));
  EXPECT_EQ(itemOf(*second).tint(), QColor(Qt::red));
  EXPECT_EQ(itemOf(*tinted).tint(), QColor(Qt::green));
}

TEST_F(ViewMirrorTest, TheSystemsColoursFollowTheAppearanceAndAPanesStayAsGiven) {
  first->setBackgroundColor(UIColor{1, 1, 1, 1, UISystemColor::kRowBackground});
  second->setBackgroundColor(UIColor{1, 1, 1, 1});
  turn();
  EXPECT_EQ(itemOf(*first).color(), QColor(Qt::white));
  Appearance::shared().setScheme(Appearance::Scheme::kDark);
  mirror.bringOverAll();
  turn();
  EXPECT_LT(itemOf(*first).color().lightness(), 50);
  EXPECT_EQ(itemOf(*second).color(), QColor(Qt::white));
}

TEST_F(ViewMirrorTest, FromRightToLeftPlacesCountFromTheOtherEdge) {
  const auto inner = viewAt(5, 0, 30, 10);
  first->addSubview(inner);
  Appearance::shared().setDirection(Appearance::Direction::kRightToLeft);
  mirror.bringOverAll();
  turn();
  EXPECT_EQ(itemOf(*first).x(), kWidth - 100 - 10);
  EXPECT_EQ(itemOf(*inner).x(), 100 - 30 - 5);
  // What stands in a view whose width changes has another place in it, though its frame is the
  // same.
  first->setFrame(CGRectMake(10, 20, 150, 50));
  turn();
  EXPECT_EQ(itemOf(*first).x(), kWidth - 150 - 10);
  EXPECT_EQ(itemOf(*inner).x(), 150 - 30 - 5);
}

TEST_F(ViewMirrorTest, EachKindOfViewHasItsKindOfItem) {
  const auto kinds = [](auto&&... views) { return std::vector<std::shared_ptr<UIView>>{views...}; }(
                         allocInit<UIView>(), allocInit<UILabel>(), allocInit<UIImageView>(),
                         allocInit<UIButton>(), allocInit<UITextField>(),
                         allocInit<UISegmentedControl>(), allocInit<UITableView>(),
                         allocInit<UIActivityIndicatorView>(), allocInit<UIWebView>());
  std::vector<std::string> names;
  for (const auto& view : kinds) {
    root->addSubview(view);
    turn();
    names.emplace_back(kindOf(*view));
  }
  EXPECT_THAT(names, ElementsAre("ViewItem", "LabelItem", "ImageItem", "ButtonItem",
                                 "TextFieldItem", "SegmentedControlItem", "TableItem",
                                 "ActivityIndicatorItem", "WebViewItem"));
  const auto cell = alloc<UITableViewCell>();
  cell->initWithStyleReuseIdentifier(UITableViewCellStyle::kValue1, "");
  root->addSubview(cell);
  const auto header = alloc<UITableViewHeaderFooterView>();
  header->initWithEdge(UITableViewSectionEdge::kHeader);
  root->addSubview(header);
  turn();
  EXPECT_STREQ(kindOf(*cell), "TableCellItem");
  EXPECT_STREQ(kindOf(*header), "HeaderFooterItem");
}

TEST_F(ViewMirrorTest, AViewOfAnotherClassIsShownAsItsNearestSuperclassIs) {
  const auto label = allocInit<NamedLabel>();
  const auto plain = allocInit<LayoutTeller>();
  root->addSubview(label);
  root->addSubview(plain);
  turn();
  EXPECT_STREQ(kindOf(*label), "LabelItem");
  EXPECT_STREQ(kindOf(*plain), "ViewItem");
}

TEST_F(ViewMirrorTest, ATapIsToldToEveryViewThatRecognisesTapsThere) {
  const auto onRoot = countTapsOn(*root);
  const auto onFirst = countTapsOn(*first);
  const auto onSecond = countTapsOn(*second);
  turn();
  mirror.recognizeTap({15, 25});
  EXPECT_EQ(onRoot->taps, 1);
  EXPECT_EQ(onFirst->taps, 1);
  EXPECT_EQ(onSecond->taps, 0);
  first->setHidden(true);
  turn();
  mirror.recognizeTap({15, 25});
  EXPECT_EQ(onRoot->taps, 2);
  EXPECT_EQ(onFirst->taps, 1);
}

TEST_F(ViewMirrorTest, AFieldKeepsTheTapsOnItToItself) {
  const auto field = allocInit<UITextField>();
  field->setFrame(CGRectMake(0, 0, 50, 50));
  first->addSubview(field);
  const auto onRoot = countTapsOn(*root);
  turn();
  mirror.recognizeTap({15, 25});
  EXPECT_EQ(onRoot->taps, 0);
  mirror.recognizeTap({80, 25});  // beside the field
  EXPECT_EQ(onRoot->taps, 1);
  field->setHidden(true);
  turn();
  mirror.recognizeTap({15, 25});
  EXPECT_EQ(onRoot->taps, 2);
}

}  // namespace
