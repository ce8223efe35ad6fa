#include "settings/items/WebViewItem.h"

#include "platform/uikit/UIWebView.h"
#include "settings/services/WebPages.h"
#include "tests/unit/window/WindowTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// No engine may be used here, and no host be reached; that this is so is told once the client goes
// on.
class WebViewItemTest : public WindowTest {
 protected:
  WebViewItemTest() {
    auto all = ::services();
    all.webViews = pages;
    installServices(all);
    client->suspend();
    qml.engine().setProperty("webPages", QVariant::fromValue(pages.get()));
    root->addSubview(page);
    page->setFrame(CGRectMake(0, 0, 300, 200));
    show(root);
    recorder->take();
  }
  ~WebViewItemTest() override {
    answer();
    qml.engine().setProperty("webPages", QVariant());
  }

  // Lets all answers come.
  void answer() {
    client->resume();
    settle();
  }

  WebViewItem& item() { return itemOf<WebViewItem>(*page); }
  std::vector<std::string> openedBy(const char* address) {
    item().openOutside(QUrl(QString::fromLatin1(address)));
    std::vector<std::string> addresses;
    for (const auto& event : take()) {
      if (const auto* open = std::get_if<OpenEvent>(&event)) {
        addresses.push_back(open->url);
      }
    }
    return addresses;
  }

  std::shared_ptr<HTTPClient> client =
      std::make_shared<HTTPClient>(HostMap(), HTTPClient::Unmapped::kUnreachable);
  std::shared_ptr<WebPages> pages = std::make_shared<WebPages>(HostMap(), client, false);
  std::shared_ptr<UIView> root = allocInit<UIView>();
  std::shared_ptr<UIWebView> page = allocInit<UIWebView>();
};

TEST_F(WebViewItemTest, AddressesOfTheWebAreOpenedAsTheyAre) {
  EXPECT_THAT(openedBy("https://other.example/a?b=c%7Cd"),
              ElementsAre("https://other.example/a?b=c%7Cd"));
  EXPECT_THAT(openedBy("http://other.example/"), ElementsAre("http://other.example/"));
}

TEST_F(WebViewItemTest, OfAMailAddressOnlyWhomItGoesToAndWhatIsInItIsKept) {
  EXPECT_THAT(openedBy("mailto:a%40b.example?attach=/etc/passwd&Subject=Two%0AWords&"
                       "cc=c@d.example&body=x%26y"),
              ElementsAre("mailto:a@b.example?subject=Two%20Words&body=x%26y"));
  EXPECT_THAT(openedBy("mailto:a@b.example,--attach@/etc/passwd"), IsEmpty());
}

TEST_F(WebViewItemTest, NothingElseIsOpened) {
  for (const char* address :
       {"cydia://url/https://other.example/", "file:///etc/passwd", "javascript:alert(1)",
        "tel:123", "ftp://other.example/", "data:text/html,x", "", "relative"}) {
    EXPECT_THAT(openedBy(address), IsEmpty()) << address;
  }
}

TEST_F(WebViewItemTest, ARedirectStaysOnItsHostAndNeverLeavesHTTPS) {
  const auto may = [this](const char* from, const char* to) {
    return item().mayRedirect(QUrl(QString::fromLatin1(from)), QUrl(QString::fromLatin1(to)));
  };
  EXPECT_TRUE(may("http://a.example/", "https://a.example/x"));
  EXPECT_TRUE(may("https://a.example/", "https://A.example:8443/"));
  EXPECT_FALSE(may("https://a.example/", "http://a.example/"));
  EXPECT_FALSE(may("http://a.example/", "http://b.example/"));
}

TEST_F(WebViewItemTest, APageThatDoesNotComeEndsTheLoadAndLeavesTheNote) {
  page->loadRequest({"http://other.example/'", 5});
  turn();
  EXPECT_TRUE(item().isLoading());
  EXPECT_FALSE(item().isAskedByEngine());
  EXPECT_FALSE(item().usesEngine());
  answer();
  EXPECT_FALSE(page->isLoading());
  EXPECT_FALSE(item().hasLoaded());
}

TEST_F(WebViewItemTest, WhatIsToldOfAnEarlierLoadChangesNothing) {
  page->loadRequest({"http://other.example/1", 5});
  turn();
  page->loadRequest({"http://other.example/2", 5});
  turn();
  EXPECT_EQ(item().url(), QUrl(QStringLiteral("http://other.example/2")));
  EXPECT_TRUE(item().isAskedByEngine());
  item().pageLoaded(123);
  EXPECT_FALSE(page->isLoading());
  EXPECT_TRUE(item().hasLoaded());
  EXPECT_EQ(page->scrollView()->contentSize().height, 123);
  // The answers to both, which do not come, change nothing any more.
  answer();
  EXPECT_TRUE(item().hasLoaded());
}

TEST_F(WebViewItemTest, APageThatIsLongerThanIsShownIsCut) {
  page->loadRequest({"http://other.example/", 5});
  turn();
  item().pageLoaded(UIWebView::kGreatestContentHeight);
  EXPECT_FALSE(item().isCut());
  item().heightChanged(UIWebView::kGreatestContentHeight + 1);
  EXPECT_TRUE(item().isCut());
  EXPECT_EQ(page->scrollView()->contentSize().height, UIWebView::kGreatestContentHeight);
  item().heightChanged(10);
  EXPECT_FALSE(item().isCut());
}

TEST_F(WebViewItemTest, WhatIsOnlyMeasuredIsLaidOutAndNotToBeSeen) {
  page->setHidden(true);
  turn();
  EXPECT_TRUE(item().isMeasuring());
  EXPECT_TRUE(item().isVisible());
  EXPECT_EQ(item().opacity(), 0);
  EXPECT_FALSE(item().isEnabled());
}

}  // namespace
