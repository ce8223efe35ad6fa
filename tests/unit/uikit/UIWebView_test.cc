#include "platform/uikit/UIWebView.h"

#include "platform/foundation/Subclass.h"
#include "tests/support/PaneTest.h"

namespace {

class Delegate : public Subclass<Delegate, NSObject>, public UIWebViewDelegate {
 public:
  static const ClassOf<Delegate> classObject;

  void webViewDidFinishLoad(UIWebView& webView) override {
    ++finished;
    height = webView.scrollView()->contentSize().height;
  }
  int finished = 0;
  CGFloat height = 0;
};

constexpr ClassOf<Delegate> Delegate::classObject{"Delegate"};

class UIWebViewTest : public PaneTest {
 protected:
  UIWebViewTest() { view->setDelegate(delegate); }

  std::shared_ptr<UIWebView> view = allocInit<UIWebView>();
  std::shared_ptr<Delegate> delegate = allocInit<Delegate>();
};

TEST_F(UIWebViewTest, TheDelegateIsToldOnceAndFindsTheSize) {
  view->loadRequest({"http://a.example/", 5});
  EXPECT_TRUE(view->isLoading());
  view->finishLoad(1, {320, 200});
  view->finishLoad(1, {320, 300});
  EXPECT_FALSE(view->isLoading());
  EXPECT_EQ(delegate->finished, 1);
  EXPECT_EQ(delegate->height, 200);
}

TEST_F(UIWebViewTest, ALoadThatFailedIsNotFinishedLater) {
  view->loadRequest({"http://a.example/", 5});
  view->failLoad(1);
  view->finishLoad(1, {320, 200});
  EXPECT_EQ(delegate->finished, 0);
  EXPECT_EQ(view->scrollView()->contentSize(), CGSizeZero);
}

TEST_F(UIWebViewTest, WhatComesOfAnEarlierLoadChangesNothing) {
  view->loadRequest({"http://a.example/", 5});
  view->loadRequest({"http://b.example/", 5});
  view->finishLoad(1, {320, 200});
  view->failLoad(1);
  EXPECT_TRUE(view->isLoading());
  EXPECT_EQ(view->request()->url, "http://b.example/");
  view->finishLoad(2, {320, 100});
  view->setContentSize(1, {320, 200});
  EXPECT_EQ(delegate->finished, 1);
  EXPECT_EQ(view->scrollView()->contentSize().height, 100);
}

TEST_F(UIWebViewTest, TheContentOfALongPageEndsAtTwentyThousandPoints) {
  view->loadRequest({"http://a.example/", 5});
  view->finishLoad(1, {320, 5e6});
  EXPECT_EQ(delegate->height, 20'000);
  view->setContentSize(1, {320, 20'000});
  EXPECT_EQ(view->scrollView()->contentSize(), (CGSize{320, 20'000}));
  view->setContentSize(1, {320, 19'999.5});
  EXPECT_EQ(view->scrollView()->contentSize().height, 19'999.5);
  view->setContentSize(1, {320, 20'000.5});
  EXPECT_EQ(view->scrollView()->contentSize().height, 20'000);
}

TEST_F(UIWebViewTest, ADelegateThatIsGoneIsNotTold) {
  view->loadRequest({"http://a.example/", 5});
  delegate.reset();
  view->finishLoad(1, {320, 200});
  EXPECT_FALSE(view->isLoading());
}

TEST_F(UIWebViewTest, AViewThatIsGoneBeforeItsPageComesIsLetGo) {
  web->setPage("http://a.example/", 100);
  view->loadRequest({"http://a.example/", 5});
  const std::weak_ptr<UIWebView> weak = view;
  view.reset();
  EXPECT_TRUE(weak.expired());
  settle();
  EXPECT_EQ(delegate->finished, 0);
}

}  // namespace
