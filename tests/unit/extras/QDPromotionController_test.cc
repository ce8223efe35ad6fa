#include "extras/QDPromotionController.h"

#include "platform/makers/TBPSSpinnerTableCell.h"
#include "platform/makers/TBPSWebViewTableCell.h"
#include "root/tweakCatalogue.h"
#include "tests/support/PaneTest.h"

extern "C" const ClassTable quietDialPreferencesClasses;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Value = PropertyListValue;

constexpr const char* kPage =
    "http://tweaks.tallowbyte.example/tweaks/tweaks.php?id=me.orlanvey.quietdial";
constexpr double kHeight = 1234.5;

class PromotionPaneTest : public PaneTest {
 protected:
  PromotionPaneTest() { NSBundle::load(kBundle, quietDialPreferencesClasses); }

  static void setLists(Tweaks available, Tweaks unseen) {
    availableTweaks.setTweaks(std::make_shared<const Tweaks>(std::move(available)));
    unseenTweaks.setTweaks(std::make_shared<const Tweaks>(std::move(unseen)));
  }

  // The address that the pane asks for while `unseen` holds these.
  std::string urlFor(const Tweaks& unseen) {
    setLists(unseen, unseen);
    return open<QDPromotionController>()->sizeCalculationView()->request()->url;
  }

  // The pane after its page was loaded.
  std::shared_ptr<QDPromotionController> openLoaded(const std::string& url = kPage) {
    web->setPage(url, kHeight);
    auto pane = open<QDPromotionController>();
    settle();
    return pane;
  }

  std::vector<std::string> eventNames() {
    std::vector<std::string> names;
    for (const auto& event : take()) {
      if (std::holds_alternative<WriteEvent>(event)) {
        names.emplace_back("write");
      } else if (std::holds_alternative<LoadStartEvent>(event)) {
        names.emplace_back("start");
      } else if (const auto* finish = std::get_if<LoadFinishEvent>(&event)) {
        names.emplace_back(finish->ok ? "finish" : "fail");
      } else {
        names.emplace_back("other");
      }
    }
    return names;
  }
};

TEST_F(PromotionPaneTest, WithNothingUnseenTheAddressHasOnlyTheIdentifier) {
  EXPECT_EQ(urlFor({}), kPage);
}

TEST_F(PromotionPaneTest, BeforeACatalogueWasFetchedTheAddressHasOnlyTheIdentifier) {
  EXPECT_EQ(open<QDPromotionController>()->sizeCalculationView()->request()->url, kPage);
}

TEST_F(PromotionPaneTest, UnseenTweaksAreJoinedAndTheSeparatorIsEncoded) {
  EXPECT_EQ(urlFor({"a", "b"}), std::string(kPage) + "&unseen=a%7Cb");
}

TEST_F(PromotionPaneTest, WhatTheHostAllowedSetLacksIsEncodedByteByByteAndTheRestStays) {
  EXPECT_EQ(urlFor({"a b", "c&d=e", "100%", "\xC3\xA4", "x|y", "/?#@\"<>\\^`{}"}),
            std::string(kPage) +
                "&unseen=a%20b%7Cc&d=e%7C100%25%7C%C3%A4%7Cx%7Cy%7C"
                "%2F%3F%23%40%22%3C%3E%5C%5E%60%7B%7D");
  EXPECT_EQ(urlFor({"AZaz09-._~!$&'()*+,;=:[]"}),
            std::string(kPage) + "&unseen=AZaz09-._~!$&'()*+,;=:[]");
}

TEST_F(PromotionPaneTest, OneEmptyIdentifierStillNamesTheParameter) {
  EXPECT_EQ(urlFor({""}), std::string(kPage) + "&unseen=");
  EXPECT_EQ(urlFor({"", ""}), std::string(kPage) + "&unseen=%7C");
}

TEST_F(PromotionPaneTest, WhileThePageLoadsThereIsOneSpinnerRow) {
  const auto pane = open<QDPromotionController>();
  ASSERT_EQ(pane->specifiers().size(), 1);
  const auto row = pane->specifierAtIndex(0);
  EXPECT_EQ(row, pane->loadingSpecifier());
  EXPECT_EQ(row->name(), "");
  EXPECT_EQ(row->cellType(), PSCellType::kDefault);
  EXPECT_EQ(row->classForKey("cellClass")->name, "TBPSSpinnerTableCell");
  EXPECT_EQ(row->plistForKey("height"), Value(100));
  EXPECT_EQ(row->target(), pane);
  const auto cell = cellAt(*pane, 0);
  EXPECT_EQ(cell->frame().size.height, 100);
  EXPECT_TRUE(cast<TBPSSpinnerTableCell>(cell));
  const auto spinner = cast<UIActivityIndicatorView>(cell->contentView()->subviews().back());
  ASSERT_TRUE(spinner);
  EXPECT_TRUE(spinner->isAnimating());
  EXPECT_FALSE(spinner->isHidden());
  EXPECT_EQ(spinner->frame(), CGRectMake(150, 40, 20, 20));
}

TEST_F(PromotionPaneTest, AHiddenViewOfThePaneLoadsThePageForHalfAMinuteAtMost) {
  const auto pane = open<QDPromotionController>();
  const auto view = pane->sizeCalculationView();
  EXPECT_TRUE(view->isHidden());
  EXPECT_EQ(view->superview(), pane->view());
  EXPECT_EQ(view->frame(), CGRectZero);
  EXPECT_TRUE(view->scrollView()->isScrollEnabled());
  EXPECT_EQ(*view->request(), (NSURLRequest{kPage, 30}));
}

TEST_F(PromotionPaneTest, ThereIsOneMeasuringViewWhateverIsAskedForFirst) {
  auto pane = allocInit<QDPromotionController>();
  pane->specifiers();  // before the view was loaded
  const auto view = pane->sizeCalculationView();
  inner->pushViewControllerAnimated(pane, false);
  layOut();
  pane->specifiers();
  pane->viewWillAppear(false);
  EXPECT_EQ(pane->sizeCalculationView(), view);
  EXPECT_EQ(view->superview(), pane->view());
  settle();
  EXPECT_THAT(web->asked(), ElementsAre(kPage));
}

TEST_F(PromotionPaneTest, TheLoadedPageTakesTheSpinnersPlaceInARowOfItsHeight) {
  setLists({"a", "b"}, {"b"});
  const auto pane = openLoaded(std::string(kPage) + "&unseen=b");
  ASSERT_EQ(pane->specifiers().size(), 1);
  EXPECT_EQ(pane->loadingSpecifier(), nullptr);
  const auto row = pane->specifierAtIndex(0);
  EXPECT_EQ(row->name(), "");
  EXPECT_EQ(row->cellType(), PSCellType::kDefault);
  EXPECT_EQ(row->classForKey("cellClass")->name, "TBPSWebViewTableCell");
  EXPECT_EQ(row->identifier(), "TweaksPromotionCell");
  EXPECT_EQ(row->textForKey("url"), std::string(kPage) + "&unseen=b");
  const auto cell = cellAt(*pane, 0);
  EXPECT_EQ(cell->frame().size.height, kHeight);
  const auto shown = cast<UIWebView>(cell->contentView()->subviews().back());
  ASSERT_TRUE(shown);
  EXPECT_FALSE(shown->isHidden());
  EXPECT_EQ(shown->frame(), CGRectMake(0, 0, 320, kHeight));
  EXPECT_EQ(pane->sizeCalculationView()->frame(), CGRectMake(0, 0, 320, 1));
}

TEST_F(PromotionPaneTest, ThePageIsLoadedOnceToMeasureItAndOnceToShowIt) {
  openLoaded();
  EXPECT_THAT(web->asked(), ElementsAre(kPage, kPage));
}

TEST_F(PromotionPaneTest, TheShownAddressHoldsWhatIsUnseenWhenThePageIsThere) {
  setLists({"a"}, {"a"});
  web->setPage(std::string(kPage) + "&unseen=a", kHeight);
  const auto pane = open<QDPromotionController>();
  setLists({"a"}, {});
  settle();
  EXPECT_EQ(pane->specifierAtIndex(0)->textForKey("url"), kPage);
}

TEST_F(PromotionPaneTest, OnceThePageIsThereTheWholeCatalogueCountsAsSeenInItsOrder) {
  setLists({"c", "a", "b", "a"}, {"a"});
  store("seen_tweaks", PropertyListArray{"b", "gone"});
  store("dialerMode", 2);
  store("foreign", PropertyListDictionary{{"kept", true}});
  take();
  openLoaded(std::string(kPage) + "&unseen=a");
  EXPECT_EQ(files->dictionaries[kSettings],
            (PropertyListDictionary{{"seen_tweaks", PropertyListArray{"c", "a", "b", "a"}},
                                    {"dialerMode", 2},
                                    {"foreign", PropertyListDictionary{{"kept", true}}}}));
}

TEST_F(PromotionPaneTest, MarkingAsSeenWritesOncePostsNothingAndRestartsNothing) {
  setLists({"a"}, {});
  openLoaded();
  EXPECT_THAT(eventNames(), ElementsAre("start", "finish", "write", "start", "finish"));
}

TEST_F(PromotionPaneTest, BeforeACatalogueWasFetchedNothingIsStored) {
  const auto pane = openLoaded();
  EXPECT_EQ(pane->specifierAtIndex(0)->identifier(), "TweaksPromotionCell");
  EXPECT_EQ(stored("seen_tweaks"), std::nullopt);
  EXPECT_THAT(eventNames(), ElementsAre("start", "finish", "start", "finish"));
}

TEST_F(PromotionPaneTest, AnEmptyCatalogueIsStoredAsAnEmptyList) {
  setLists({}, {});
  openLoaded();
  EXPECT_EQ(stored("seen_tweaks"), Value(PropertyListArray{}));
}

TEST_F(PromotionPaneTest, APageThatNeverComesLeavesTheSpinnerAndStoresNothing) {
  setLists({"a"}, {});
  const auto pane = open<QDPromotionController>();
  settle();
  EXPECT_EQ(pane->specifierAtIndex(0), pane->loadingSpecifier());
  EXPECT_TRUE(pane->loadingSpecifier());
  EXPECT_FALSE(pane->sizeCalculationView()->isLoading());
  EXPECT_THAT(eventNames(), ElementsAre("start", "fail"));
  EXPECT_TRUE(files->dictionaries.empty());
}

TEST_F(PromotionPaneTest, ASecondEndOfLoadingChangesAndStoresNothing) {
  setLists({"a"}, {});
  const auto pane = openLoaded();
  const auto row = pane->specifierAtIndex(0);
  const auto cell = cellAt(*pane, 0);
  take();
  setLists({"a", "b"}, {"b"});
  pane->webViewDidFinishLoad(*pane->sizeCalculationView());
  settle();
  EXPECT_THAT(pane->specifiers(), ElementsAre(row));
  EXPECT_EQ(cellAt(*pane, 0), cell);
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(PromotionPaneTest, ARowWithAnotherIdentifierHasThePlatformsHeight) {
  const auto pane = open<QDPromotionController>();
  EXPECT_EQ(pane->tableViewHeightForRowAtIndexPath(*pane->table(), {0, 0}), 100);
  EXPECT_EQ(pane->sizeCalculationView()->frame(), CGRectZero);
  EXPECT_EQ(pane->tableViewHeightForRowAtIndexPath(*pane->table(), {7, 7}), 44);
}

TEST_F(PromotionPaneTest, TheRowsHeightFollowsThePagesAndTheCellStays) {
  const auto pane = openLoaded();
  const auto cell = cellAt(*pane, 0);
  const auto view = pane->sizeCalculationView();
  view->setContentSize(view->loadNumber(), {320, 700});
  layOut();
  EXPECT_EQ(cellAt(*pane, 0), cell);
  EXPECT_EQ(cell->frame().size.height, 700);
}

TEST_F(PromotionPaneTest, ANewWidthIsMeasuredAtThatWidth) {
  const auto pane = openLoaded();
  width = 414;
  layOut();
  EXPECT_EQ(pane->sizeCalculationView()->frame(), CGRectMake(0, 0, 414, 1));
  EXPECT_EQ(cellAt(*pane, 0)->frame().size, (CGSize{414, kHeight}));
}

TEST_F(PromotionPaneTest, AnAnswerAfterThePageWasLeftChangesNothing) {
  setLists({"a"}, {});
  web->setPage(kPage, kHeight);
  std::weak_ptr<NSObject> weak = open<QDPromotionController>();
  inner->popViewControllerAnimated(false);
  EXPECT_TRUE(weak.expired());
  settle();
  EXPECT_EQ(stored("seen_tweaks"), std::nullopt);
}

}  // namespace
