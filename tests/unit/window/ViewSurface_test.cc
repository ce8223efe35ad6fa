#include "settings/mirror/ViewSurface.h"

#include <QPointer>
#include <QSignalSpy>

#include "tests/unit/window/RowsPane.h"
#include "tests/unit/window/WindowTest.h"

namespace {

using testing::ElementsAre;

class ViewSurfaceTest : public WindowTest {
 protected:
  std::shared_ptr<UIView> view = allocInit<UIView>();
};

TEST_F(ViewSurfaceTest, TheViewTakesTheSurfacesSize) {
  show(view);
  EXPECT_EQ(view->frame(), CGRectMake(0, 0, kWidth, kHeight));
  surface->setSize({200, 300});
  turn();
  EXPECT_EQ(view->frame(), CGRectMake(0, 0, 200, 300));
  EXPECT_EQ(itemOf(*view).size(), QSizeF(200, 300));
}

TEST_F(ViewSurfaceTest, WhatHoldsTheViewHasItsSize) {
  const auto holder = allocInit<UIView>();
  holder->addSubview(view);
  show(view);
  EXPECT_EQ(holder->frame(), CGRectMake(0, 0, kWidth, kHeight));
}

TEST_F(ViewSurfaceTest, ASurfaceThatIsNotFilledHasTheViewsSize) {
  surface->setProperty("fillsSurface", false);
  view->setFrame(CGRectMake(0, 0, 70, 40));
  show(view);
  EXPECT_EQ(QSizeF(surface->implicitWidth(), surface->implicitHeight()), QSizeF(70, 40));
  EXPECT_EQ(view->frame(), CGRectMake(0, 0, 70, 40));
}

TEST_F(ViewSurfaceTest, WhatIsOutOfSightIsNotLaidOutUntilItComesBack) {
  show(view);
  surface->setLive(false);
  surface->setSize({200, 300});
  turn();
  EXPECT_EQ(view->frame(), CGRectMake(0, 0, kWidth, kHeight));
  surface->setLive(true);
  turn();
  EXPECT_EQ(itemOf(*view).size(), QSizeF(200, 300));
}

TEST_F(ViewSurfaceTest, AnotherViewTakesThePlaceOfTheFormer) {
  show(view);
  const QPointer<ViewItem> former(&itemOf(*view));
  const auto other = allocInit<UIView>();
  show(other);
  EXPECT_TRUE(former.isNull());
  EXPECT_THAT(viewsIn(*surface), ElementsAre(other.get()));
}

TEST_F(ViewSurfaceTest, ASurfaceThatIsNoMoreLaysNothingOut) {
  show(view);
  surface.reset();
  view->setFrame(CGRectMake(0, 0, 11, 12));
  const QSignalSpy commits(&mirror, &ViewMirror::committed);
  turn();
  EXPECT_EQ(commits.count(), 1);
  EXPECT_EQ(view->frame(), CGRectMake(0, 0, 11, 12));
}

TEST_F(ViewSurfaceTest, TheKeyboardGoesToThePagesListOnceItIsThere) {
  const auto pane = allocInit<RowsPane>();
  pane->setSpecifiers(pane->buttons({"a", "b"}));
  surface->forceActiveFocus();
  surface->setRoot(pane->view());
  turn();
  EXPECT_EQ(screen.activeFocusItem(), &itemOf(*pane->table()));
}

TEST_F(ViewSurfaceTest, WithoutAListTheKeyboardStaysWithTheSurface) {
  show(view);
  EXPECT_EQ(screen.activeFocusItem(), surface.get());
}

}  // namespace
