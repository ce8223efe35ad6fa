#include "platform/uikit/UIWindow.h"

#include <gmock/gmock.h>

#include "platform/foundation/Subclass.h"
#include "tests/support/PaneTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Follower : public Subclass<Follower, UIView> {
 public:
  static const ClassOf<Follower> classObject;

  void didMoveToSuperview() override { moves.emplace_back(superview() ? "superview" : "none"); }
  void didMoveToWindow() override { moves.emplace_back(window() ? "window" : "no window"); }
  std::vector<std::string> take() { return std::exchange(moves, {}); }

  std::vector<std::string> moves;
};

constexpr ClassOf<Follower> Follower::classObject{"Follower"};

class UIWindowTest : public PaneTest {
 protected:
  std::shared_ptr<Follower> view = allocInit<Follower>();
  std::shared_ptr<UIView> parent = allocInit<UIView>();
};

TEST_F(UIWindowTest, AViewStandsInTheWindowAtAnyDepth) {
  EXPECT_EQ(view->window(), nullptr);
  parent->addSubview(view);
  EXPECT_EQ(view->window(), nullptr);
  window->addSubview(parent);
  EXPECT_EQ(view->window(), window);
  EXPECT_EQ(window->window(), window);
}

TEST_F(UIWindowTest, AViewIsToldOfEachMove) {
  parent->addSubview(view);
  EXPECT_THAT(view->take(), ElementsAre("superview"));
  window->addSubview(parent);
  EXPECT_THAT(view->take(), ElementsAre("window"));
  parent->removeFromSuperview();
  EXPECT_THAT(view->take(), ElementsAre("no window"));
  view->removeFromSuperview();
  EXPECT_THAT(view->take(), ElementsAre("none"));
  view->removeFromSuperview();
  EXPECT_THAT(view->take(), IsEmpty());
}

TEST_F(UIWindowTest, AMoveWithinTheWindowIsNoMoveToAWindow) {
  window->addSubview(parent);
  window->addSubview(view);
  view->take();
  parent->addSubview(view);
  EXPECT_THAT(view->take(), ElementsAre("superview"));
}

TEST_F(UIWindowTest, AViewThatOutlivesItsSuperviewIsTold) {
  parent->addSubview(view);
  view->take();
  parent.reset();
  EXPECT_THAT(view->take(), ElementsAre("none"));
}

TEST_F(UIWindowTest, EverythingBelowAWindowThatGoesIsToldOnceThatItLeftIt) {
  const auto middle = allocInit<Follower>();
  auto other = allocInit<UIWindow>();
  middle->addSubview(view);
  parent->addSubview(middle);
  other->addSubview(parent);
  view->take();
  middle->take();
  std::weak_ptr<UIView> kept = parent;
  parent.reset();
  other.reset();
  EXPECT_TRUE(kept.expired());
  EXPECT_THAT(middle->take(), ElementsAre("no window", "none"));
  EXPECT_THAT(view->take(), ElementsAre("no window"));
}

TEST_F(UIWindowTest, AViewThatOutlivesASuperviewWithoutAWindowHasLeftNone) {
  const auto middle = allocInit<UIView>();
  middle->addSubview(view);
  parent->addSubview(middle);
  view->take();
  parent.reset();
  EXPECT_THAT(view->take(), IsEmpty());
}

// Adds a view below itself as soon as it stands in a window.
class Filler : public Subclass<Filler, UIView> {
 public:
  static const ClassOf<Filler> classObject;

  void didMoveToWindow() override {
    if (window()) {
      addSubview(child);
    }
  }
  std::shared_ptr<Follower> child = allocInit<Follower>();
};

constexpr ClassOf<Filler> Filler::classObject{"Filler"};

TEST_F(UIWindowTest, AViewThatIsAddedWhileItsSuperviewIsToldIsToldOnce) {
  const auto filler = allocInit<Filler>();
  window->addSubview(filler);
  EXPECT_THAT(filler->child->take(), ElementsAre("superview", "window"));
}

TEST_F(UIWindowTest, OnlyThePageOnTopStandsInTheWindow) {
  const auto first = allocInit<UIViewController>();
  const auto second = allocInit<UIViewController>();
  inner->pushViewControllerAnimated(first, false);
  EXPECT_EQ(first->view()->window(), window);
  inner->pushViewControllerAnimated(second, false);
  EXPECT_EQ(first->view()->window(), nullptr);
  EXPECT_EQ(second->view()->window(), window);
  inner->popViewControllerAnimated(false);
  EXPECT_EQ(first->view()->window(), window);
  EXPECT_EQ(second->view()->window(), nullptr);
  inner->popViewControllerAnimated(false);
  EXPECT_EQ(first->view()->window(), nullptr);
}

}  // namespace
