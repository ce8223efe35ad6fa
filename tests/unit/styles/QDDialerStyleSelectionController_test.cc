#include "styles/QDDialerStyleSelectionController.h"

#include <cmath>
#include <ostream>

#include "headless/drainAllQueues.h"
#include "platform/makers/TBPSEmptyHeaderView.h"
#include "platform/uikit/UIAccessibility.h"
#include "styles/QDDialerTabStyleCell.h"
#include "tests/support/ChangeCounter.h"
#include "tests/support/StopCounter.h"
#include "tests/unit/styles/StylePaneTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Value = PropertyListValue;

constexpr const char* kSwipeInfo =
    "Swipe to the left or to the right side of the green button to show the Call Anonymously "
    "button.\n\nThe selection above will be automatically be set as your theme.";
constexpr const char* kHoldInfo =
    "Tap and hold the green button to show the Call Anonymously button.\n\nThe selection above "
    "will be automatically be set as your theme.";
constexpr const char* kAlwaysInfo =
    "Both buttons will always be shown.\n\n\nThe selection above will be automatically be set as "
    "your theme.";

class DialTabPaneTest : public StylePaneTest {
 protected:
  static constexpr double kFirstWidth = 10;

  DialTabPaneTest() { storePreviews("Style", 10); }

  std::shared_ptr<QDDialerStyleSelectionController> openPane() {
    return open<QDDialerStyleSelectionController>();
  }
};

TEST_F(DialTabPaneTest, TheRowsAreAnEmptyHeaderAndTheStyleRow) {
  const auto pane = openPane();
  const auto& rows = pane->specifiers();
  ASSERT_THAT(rows, SizeIs(2));
  EXPECT_EQ(rows[0]->name(), "");
  EXPECT_EQ(rows[0]->cellType(), PSCellType::kGroup);
  EXPECT_THAT(rows[0]->properties(), SizeIs(1));
  EXPECT_EQ(rows[0]->textForKey("headerCellClass"), "TBPSEmptyHeaderView");
  EXPECT_TRUE(cast<TBPSEmptyHeaderView>(pane->table()->headerViewForSection(0)));
  EXPECT_EQ(rows[1]->name(), "");
  EXPECT_EQ(rows[1]->cellType(), PSCellType::kDefault);
  EXPECT_EQ(rows[1]->target(), pane);
  EXPECT_EQ(rows[1]->value(), std::nullopt);
  EXPECT_EQ(rows[1]->detail(), "");
  EXPECT_THAT(rows[1]->properties(), SizeIs(2)) << "no key: the cell has keys of its own";
  EXPECT_EQ(rows[1]->classForKey("cellClass"), &QDDialerTabStyleCell::classObject);
  EXPECT_EQ(rows[1]->plistForKey("dynamicHeight"), Value(true));
}

TEST_F(DialTabPaneTest, TheRowListIsBuiltOnce) {
  const auto pane = openPane();
  const auto rows = pane->specifiers();
  EXPECT_EQ(pane->specifiers(), rows);
}

TEST_F(DialTabPaneTest, FirstOpeningWritesModeZeroThenItsTitleAndNotifiesTwice) {
  const auto pane = openPane();
  const auto events = take();
  ASSERT_THAT(events, SizeIs(4));
  EXPECT_EQ(std::get<WriteEvent>(events[0]).settings, (PropertyListDictionary{{"dialerMode", 0}}));
  EXPECT_EQ(std::get<PostEvent>(events[1]).name, kChanged);
  EXPECT_EQ(std::get<WriteEvent>(events[2]).settings,
            (PropertyListDictionary{{"dialerMode", 0}, {"dialerModeText", "Swipe"}}));
  EXPECT_EQ(std::get<PostEvent>(events[3]).name, kChanged);
}

TEST_F(DialTabPaneTest, FirstOpeningShowsSwipeWithItsPreviewPlayingAndItsText) {
  const auto pane = openPane();
  const auto cell = styleCell(*pane);
  EXPECT_THAT(cell->segmentedControl()->titles(), ElementsAre("Swipe", "Hold", "Show always"));
  EXPECT_EQ(cell->segmentedControl()->selectedSegmentIndex(), 0);
  EXPECT_EQ(previewWidth(*cell), kFirstWidth);
  EXPECT_TRUE(cell->animatedImageView()->isAnimating());
  EXPECT_EQ(cell->infoLabel()->text(), kSwipeInfo);
}

TEST_F(DialTabPaneTest, OpeningAgainWithHoldStoredWritesAndPostsNothingAndShowsHold) {
  store("dialerMode", 1);
  store("dialerModeText", "Hold");
  const auto pane = openPane();
  EXPECT_THAT(take(), IsEmpty());
  const auto cell = styleCell(*pane);
  EXPECT_EQ(cell->segmentedControl()->selectedSegmentIndex(), 1);
  EXPECT_EQ(previewWidth(*cell), kFirstWidth + 1);
  EXPECT_TRUE(cell->animatedImageView()->isAnimating());
  EXPECT_EQ(cell->infoLabel()->text(), kHoldInfo);
}

TEST_F(DialTabPaneTest, ChoosingShowAlwaysWritesModeThenTitleAndShowsItsPreviewAndText) {
  const auto pane = openPane();
  take();
  choose(*pane, 2);
  const auto events = take();
  ASSERT_THAT(events, SizeIs(4));
  EXPECT_EQ(std::get<WriteEvent>(events[0]).settings,
            (PropertyListDictionary{{"dialerMode", 2}, {"dialerModeText", "Swipe"}}));
  EXPECT_EQ(std::get<WriteEvent>(events[2]).settings,
            (PropertyListDictionary{{"dialerMode", 2}, {"dialerModeText", "Show always"}}));
  const auto cell = styleCell(*pane);
  EXPECT_EQ(previewWidth(*cell), kFirstWidth + 2);
  EXPECT_EQ(cell->infoLabel()->text(), kAlwaysInfo);
}

TEST_F(DialTabPaneTest, EachPreviewIsDescribedInASentenceOfItsOwn) {
  const auto pane = openPane();
  const auto description = [&](int mode) {
    choose(*pane, mode);
    return styleCell(*pane)->animatedImageView()->accessibilityLabel();
  };
  EXPECT_EQ(description(1),
            "Animation: a finger rests on the green button until the Call Anonymously button comes "
            "out beside it.");
  EXPECT_EQ(description(2),
            "Animation: both buttons stand side by side, and a finger taps the Call Anonymously "
            "button.");
  EXPECT_EQ(description(0),
            "Animation: a finger swipes sideways from the green button, and the Call Anonymously "
            "button slides out beside it.");
}

TEST_F(DialTabPaneTest, AStoredModeWithAnotherTitleHasItsTitlePutRightAlone) {
  store("dialerMode", 1);
  store("dialerModeText", "Swipe");
  openPane();
  EXPECT_THAT(takePosts(), ElementsAre(kChanged));
  EXPECT_EQ(stored("dialerModeText"), Value("Hold"));
}

TEST_F(DialTabPaneTest, ChoosingTheChosenSegmentAgainKeepsThePreviewAndWritesNothing) {
  const auto pane = openPane();
  take();
  const auto preview = styleCell(*pane)->animatedImageView();
  choose(*pane, 0);
  EXPECT_EQ(styleCell(*pane)->animatedImageView(), preview);
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(DialTabPaneTest, AfterAnyNumberOfChangesThereIsOnePreviewView) {
  const auto pane = openPane();
  for (int change = 1; change <= 50; ++change) {
    const auto former = styleCell(*pane)->animatedImageView();
    choose(*pane, change % 3);
    EXPECT_THAT(previewViews(*styleCell(*pane)),
                ElementsAre(styleCell(*pane)->animatedImageView()));
    EXPECT_EQ(former->superview(), nullptr);
  }
}

TEST_F(DialTabPaneTest, EachUpdateReadsThePreviewFromItsFileAgain) {
  const auto pane = openPane();
  files->data[path("Style", 1)] = files->data[path("Style", 2)];
  choose(*pane, 1);
  EXPECT_EQ(previewWidth(*styleCell(*pane)), kFirstWidth + 2);
}

TEST_F(DialTabPaneTest, AMissingOrDamagedPreviewLeavesAnEmptyView) {
  files->data.erase(path("Style", 0));
  files->data[path("Style", 1)] = PropertyListData(10);
  const auto pane = openPane();
  for (const int mode : {1, 0}) {
    choose(*pane, mode);
    const auto cell = styleCell(*pane);
    EXPECT_EQ(previewWidth(*cell), 0);
    EXPECT_THAT(previewViews(*cell), ElementsAre(cell->animatedImageView()));
    EXPECT_EQ(cell->animatedImageView()->image(), nullptr);
    EXPECT_EQ(cell->animatedImageView()->accessibilityLabel(), "");
  }
}

TEST_F(DialTabPaneTest, AModeThatNoSegmentStandsForSelectsNoneAndIsLeftAsItIs) {
  for (const auto& value : valuesWithoutSegment()) {
    files->dictionaries.clear();
    store("dialerMode", value);
    const auto pane = openPane();
    const auto cell = styleCell(*pane);
    EXPECT_EQ(cell->segmentedControl()->selectedSegmentIndex(), UISegmentedControl::kNoSegment);
    EXPECT_THAT(take(), IsEmpty());
    EXPECT_EQ(files->dictionaries[kSettings], (PropertyListDictionary{{"dialerMode", value}}));
    EXPECT_EQ(cell->infoLabel()->text(), kAlwaysInfo);
    EXPECT_EQ(previewWidth(*cell), 0);
    EXPECT_THAT(previewViews(*cell), SizeIs(1));
    inner->popViewControllerAnimated(false);
  }
}

TEST_F(DialTabPaneTest, ASegmentCanBeChosenWhileNoneIsSelected) {
  store("dialerMode", 3);
  const auto pane = openPane();
  choose(*pane, 0);
  EXPECT_EQ(stored("dialerMode"), Value(0));
  EXPECT_EQ(stored("dialerModeText"), Value("Swipe"));
  EXPECT_EQ(previewWidth(*styleCell(*pane)), kFirstWidth);
}

TEST_F(DialTabPaneTest, ModesOfOtherTypesCountByTheirIntegerAndAreStoredAsIt) {
  for (const auto& [value, mode] : {std::pair<Value, int>("1", 1),
                                    {"2 fingers", 2},
                                    {"Hold", 0},
                                    {"", 0},
                                    {1.75, 1},
                                    {-0.5, 0},
                                    {std::nan(""), 0}}) {
    files->dictionaries.clear();
    store("dialerMode", value);
    const auto pane = openPane();
    EXPECT_EQ(styleCell(*pane)->segmentedControl()->selectedSegmentIndex(), mode);
    EXPECT_EQ(stored("dialerMode"), Value(mode));
    EXPECT_NE(stored("dialerMode")->get<std::int64_t>(), nullptr);
    inner->popViewControllerAnimated(false);
  }
}

TEST_F(DialTabPaneTest, ABooleanOrARealThatEqualsTheModeStaysAsItIs) {
  for (const auto& [value, mode] : {std::pair<Value, int>(true, 1), {false, 0}, {2.0, 2}}) {
    files->dictionaries.clear();
    store("dialerMode", value);
    const auto pane = openPane();
    EXPECT_EQ(styleCell(*pane)->segmentedControl()->selectedSegmentIndex(), mode);
    EXPECT_EQ(stored("dialerMode")->get<std::int64_t>(), nullptr);
    inner->popViewControllerAnimated(false);
  }
}

TEST_F(DialTabPaneTest, WritingKeepsEveryOtherKey) {
  store("other", PropertyListArray{1, "a"});
  openPane();
  EXPECT_EQ(stored("other"), Value(PropertyListArray{1, "a"}));
}

TEST_F(DialTabPaneTest, FailedWritesStillNotify) {
  files->failsToWrite = true;
  openPane();
  // The mode is still absent when the update looks, so it is written twice, and then the title.
  EXPECT_THAT(takePosts(), ElementsAre(kChanged, kChanged, kChanged));
}

TEST_F(DialTabPaneTest, TheViewsLieInTheContentViewInTheOrderOfTheirMaking) {
  const auto pane = openPane();
  const auto cell = styleCell(*pane);
  const auto& views = cell->contentView()->subviews();
  ASSERT_GE(views.size(), 4U);
  EXPECT_EQ(std::vector<std::shared_ptr<UIView>>(views.end() - 4, views.end()),
            (std::vector<std::shared_ptr<UIView>>{cell->segmentedControl(), cell->seperator(),
                                                  cell->infoLabel(), cell->animatedImageView()}));
}

TEST_F(DialTabPaneTest, RuleAndTextHaveTheirLook) {
  const auto pane = openPane();
  const auto cell = styleCell(*pane);
  EXPECT_EQ(cell->seperator()->backgroundColor(), UIColor::lightGrayColor());
  EXPECT_EQ(cell->infoLabel()->font(), UIFont::systemFontOfSize(14));
  EXPECT_EQ(cell->infoLabel()->textColor(), UIColor::grayColor());
  EXPECT_EQ(cell->infoLabel()->textAlignment(), NSTextAlignment::kCenter);
  EXPECT_EQ(cell->infoLabel()->numberOfLines(), 0);
}

struct DialMeasures {
  CGFloat width;
  float previewHeight;
  float infoTop;
  float height;

  friend std::ostream& operator<<(std::ostream& out, const DialMeasures& measures) {
    return out << measures.width << " points";
  }
};

class DialTabMeasuresTest : public DialTabPaneTest,
                            public testing::WithParamInterface<DialMeasures> {};

TEST_P(DialTabMeasuresTest, FramesAndHeightAreThoseOfSinglePrecision) {
  const auto& expected = GetParam();
  width = expected.width;
  const auto pane = openPane();
  const auto cell = styleCell(*pane);
  const auto w = static_cast<float>(expected.width);
  EXPECT_EQ(cell->contentView()->bounds().size.width, expected.width);
  EXPECT_THAT(single(cell->segmentedControl()->frame()), ElementsAre(20, 20, w - 40, 35));
  EXPECT_THAT(single(cell->seperator()->frame()), ElementsAre(0, 64, w, 1));
  EXPECT_THAT(single(cell->animatedImageView()->frame()),
              ElementsAre(15, 65, w - 30, expected.previewHeight));
  EXPECT_THAT(single(cell->infoLabel()->frame()), ElementsAre(20, expected.infoTop, w - 40, 90));
  EXPECT_EQ(cell->preferredHeightForWidth(expected.width), expected.height);
  EXPECT_EQ(cell->frame().size.height, expected.height);
  EXPECT_TRUE(cell->isUserInteractionEnabled());
}

INSTANTIATE_TEST_SUITE_P(Widths, DialTabMeasuresTest,
                         testing::Values(DialMeasures{280, 181.02824F, 257.02826F, 357.02826F},
                                         DialMeasures{320, 209.99275F, 285.99274F, 385.99274F},
                                         DialMeasures{375, 249.81897F, 325.81897F, 425.81897F},
                                         DialMeasures{414, 278.0594F, 354.0594F, 454.0594F},
                                         DialMeasures{768.5, 534.75745F, 610.75745F, 710.75745F}));

TEST_F(DialTabPaneTest, TheRowFollowsTheWidthOfTheTable) {
  const auto pane = openPane();
  const auto preview = styleCell(*pane)->animatedImageView();
  width = 375;
  layOut();
  EXPECT_EQ(styleCell(*pane)->frame().size.height, 425.81897F);
  EXPECT_EQ(styleCell(*pane)->animatedImageView(), preview) << "the same cell, laid out again";
}

TEST_F(DialTabPaneTest, AnotherWidthNeverStopsThePreview) {
  const auto pane = openPane();
  const auto delegate = allocInit<StopCounter>();
  const auto preview = styleCell(*pane)->animatedImageView();
  preview->setOvervationDelegate(delegate);
  for (width = 280; width < 420; width += 35) {
    layOut();
    pane->table()->reloadData();
    layOut();
  }
  EXPECT_EQ(delegate->stops, 0);
  EXPECT_TRUE(preview->isAnimating());
}

TEST_F(DialTabPaneTest, AnotherWidthLeavesAFinishedPreviewAtRest) {
  const auto pane = openPane();
  const auto preview = styleCell(*pane)->animatedImageView();
  playToItsEnd(*preview);
  width = 375;
  layOut();
  EXPECT_FALSE(preview->isAnimating());
  EXPECT_FALSE(displayRefresh->isWanted());
}

TEST_F(DialTabPaneTest, AFinishedPreviewThatIsSeenAgainDrawsNothing) {
  const auto pane = openPane();
  const auto preview = styleCell(*pane)->animatedImageView();
  playToItsEnd(*preview);
  inner->pushViewControllerAnimated(allocInit<UIViewController>(), false);
  EXPECT_FALSE(displayRefresh->isWanted());
  inner->popViewControllerAnimated(false);
  layOut();
  EXPECT_TRUE(preview->isAnimating());
  preview->layer().displayIfNeeded();
  const auto contents = preview->layer().contents();
  const ChangeCounter counter;
  for (int i = 0; i < 30; ++i) {
    drainAllQueues();
    displayRefresh->refresh(1.0 / 60);
  }
  EXPECT_EQ(counter.changes, 0);
  EXPECT_EQ(preview->layer().contents(), contents);
}

TEST_F(DialTabPaneTest, ACellByItselfHasItsReuseIdentifierAndTheDefaultStyle) {
  const auto pane = openPane();
  const auto cell = alloc<QDDialerTabStyleCell>();
  EXPECT_TRUE(cell->initWithSpecifier(pane->specifiers()[kStyleRow]));
  EXPECT_EQ(cell->reuseIdentifier(), "QDDialerTabStyleCell");
  EXPECT_EQ(cell->detailTextLabel(), nullptr);
}

TEST_F(DialTabPaneTest, WithReducedMotionThePreviewShowsItsLastFrameAndNothingMoves) {
  UIAccessibilitySetReduceMotionEnabled(true);
  const auto pane = openPane();
  const auto cell = styleCell(*pane);
  const auto preview = cell->animatedImageView();
  EXPECT_EQ(preview->image(), cell->animatedImage()->posterImage()) << "until the last is decoded";
  drainAllQueues();
  EXPECT_FALSE(displayRefresh->isWanted());
  EXPECT_EQ(preview->animatedImage(), nullptr);
  // The frames are black and white in turn.
  ASSERT_EQ(cell->animatedImage()->frameCount(), 2U);
  EXPECT_EQ(preview->image()->CGImage()->pixels()->pixels()[0], 0xFFFFFFFF);
  UIAccessibilitySetReduceMotionEnabled(false);
  choose(*pane, 1);
  EXPECT_TRUE(cell->animatedImageView()->isAnimating());
}

TEST_F(DialTabPaneTest, AViewThatIsGoneBeforeItsLastFrameIsThereIsNotMissed) {
  UIAccessibilitySetReduceMotionEnabled(true);
  auto pane = openPane();
  const auto picture = styleCell(*pane)->animatedImage();
  const std::weak_ptr<UIView> preview = styleCell(*pane)->animatedImageView();
  inner->popViewControllerAnimated(false);
  pane.reset();
  ASSERT_TRUE(preview.expired());
  drainAllQueues();
  EXPECT_GE(picture->frameCount(), 2U) << "the picture was there to be decoded";
}

TEST_F(DialTabPaneTest, LeavingThePageStopsThePreview) {
  const auto pane = openPane();
  EXPECT_TRUE(displayRefresh->isWanted());
  inner->popViewControllerAnimated(false);
  EXPECT_FALSE(displayRefresh->isWanted());
}

}  // namespace
