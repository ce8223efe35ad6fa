#include "styles/QDSystemwideStyleSelectionController.h"

#include <ostream>

#include "platform/makers/TBPSEmptyHeaderView.h"
#include "platform/preferences/PSEditableTableCell.h"
#include "platform/preferences/PSTextFieldSpecifier.h"
#include "platform/uikit/UITapGestureRecognizer.h"
#include "styles/QDSystemwideStyleCell.h"
#include "tests/unit/styles/StylePaneTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Value = PropertyListValue;

constexpr int kCustomRow = 3;
constexpr int kTwoButtonRow = 4;

class SystemwidePaneTest : public StylePaneTest {
 protected:
  static constexpr double kFirstWidth = 20;

  SystemwidePaneTest() { storePreviews("SystemWideStyle", 20); }

  std::shared_ptr<QDSystemwideStyleSelectionController> openPane() {
    return open<QDSystemwideStyleSelectionController>();
  }

  static std::shared_ptr<UITextField> field(PSListController& pane, int row) {
    return cast<PSEditableTableCell>(cellAt(pane, row))->textField();
  }

  // The lines logged since the last take.
  std::vector<std::string> takeLog() {
    std::vector<std::string> lines;
    for (const auto& event : take()) {
      if (const auto* log = std::get_if<LogEvent>(&event)) {
        lines.push_back(log->line);
      }
    }
    return lines;
  }
};

TEST_F(SystemwidePaneTest, TheRowsAreTheStyleRowAndTwoFieldsUnderATitle) {
  const auto pane = openPane();
  const auto& rows = pane->specifiers();
  ASSERT_THAT(rows, SizeIs(5));
  EXPECT_EQ(rows[0]->cellType(), PSCellType::kGroup);
  EXPECT_EQ(rows[0]->name(), "");
  EXPECT_THAT(rows[0]->properties(), SizeIs(1));
  EXPECT_EQ(rows[0]->textForKey("headerCellClass"), "TBPSEmptyHeaderView");
  EXPECT_TRUE(cast<TBPSEmptyHeaderView>(pane->table()->headerViewForSection(0)));
  EXPECT_EQ(rows[1]->cellType(), PSCellType::kDefault);
  EXPECT_EQ(rows[1]->name(), "");
  EXPECT_THAT(rows[1]->properties(), SizeIs(2));
  EXPECT_EQ(rows[1]->classForKey("cellClass"), &QDSystemwideStyleCell::classObject);
  EXPECT_EQ(rows[1]->plistForKey("dynamicHeight"), Value(true));
  EXPECT_EQ(rows[2]->cellType(), PSCellType::kGroup);
  EXPECT_EQ(rows[2]->name(), "Custom Text");
  EXPECT_THAT(rows[2]->properties(), SizeIs(1));
  EXPECT_EQ(rows[2]->plistForKey("alignment"), Value(1));
  for (const auto& [index, placeholder, key] :
       {std::tuple(kCustomRow, "Are you sure you want to call?", "customText"),
        {kTwoButtonRow, "How would you like to call?", "systemWideTwoButtonText"}}) {
    const auto row = cast<PSTextFieldSpecifier>(rows[index]);
    ASSERT_TRUE(row);
    EXPECT_EQ(row->cellType(), PSCellType::kEditText);
    EXPECT_EQ(row->name(), "");
    EXPECT_EQ(row->target(), pane);
    EXPECT_EQ(row->placeholder(), placeholder);
    EXPECT_THAT(row->properties(), SizeIs(1));
    EXPECT_EQ(row->textForKey("key"), key);
  }
}

TEST_F(SystemwidePaneTest, FirstOpeningLogsOnceAndWritesModeTwoThenItsTitle) {
  openPane();
  const auto events = take();
  ASSERT_THAT(events, SizeIs(5));
  EXPECT_EQ(std::get<WriteEvent>(events[0]).settings,
            (PropertyListDictionary{{"systemwideStyle", 2}}));
  EXPECT_EQ(std::get<PostEvent>(events[1]).name, kChanged);
  EXPECT_EQ(std::get<LogEvent>(events[2]).line, "test!");
  EXPECT_EQ(
      std::get<WriteEvent>(events[3]).settings,
      (PropertyListDictionary{{"systemwideStyle", 2}, {"systemwideStyleText", "Show always"}}));
  EXPECT_EQ(std::get<PostEvent>(events[4]).name, kChanged);
}

TEST_F(SystemwidePaneTest, FirstOpeningShowsShowAlwaysWithItsPreviewPlayingAndNoText) {
  const auto pane = openPane();
  const auto cell = styleCell(*pane);
  EXPECT_THAT(cell->segmentedControl()->titles(), ElementsAre("Swipe", "Hold", "Show always"));
  EXPECT_EQ(cell->segmentedControl()->selectedSegmentIndex(), 2);
  EXPECT_EQ(previewWidth(*cell), kFirstWidth + 2);
  EXPECT_TRUE(cell->animatedImageView()->isAnimating());
  EXPECT_EQ(cell->infoLabel(), nullptr);
}

TEST_F(SystemwidePaneTest, WithoutStoredTextsTheFieldsAreEmptyAndShowTheirPlaceholders) {
  const auto pane = openPane();
  EXPECT_EQ(field(*pane, kCustomRow)->text(), "");
  EXPECT_EQ(field(*pane, kCustomRow)->placeholder(), "Are you sure you want to call?");
  EXPECT_EQ(field(*pane, kTwoButtonRow)->text(), "");
  EXPECT_EQ(field(*pane, kTwoButtonRow)->placeholder(), "How would you like to call?");
  EXPECT_EQ(stored("customText"), std::nullopt);
  EXPECT_EQ(stored("systemWideTwoButtonText"), std::nullopt);
}

TEST_F(SystemwidePaneTest, OpeningAgainWritesAndPostsNothingButLogs) {
  store("systemwideStyle", 0);
  store("systemwideStyleText", "Swipe");
  store("customText", "Sure?");
  const auto pane = openPane();
  EXPECT_THAT(take(), ElementsAre(Event(LogEvent{"test!"})));
  EXPECT_EQ(previewWidth(*styleCell(*pane)), kFirstWidth);
  EXPECT_EQ(field(*pane, kCustomRow)->text(), "Sure?");
}

TEST_F(SystemwidePaneTest, SwitchingTwiceLeavesOnePreviewAndLogsTwice) {
  const auto pane = openPane();
  take();
  choose(*pane, 0);
  choose(*pane, 1);
  EXPECT_THAT(previewViews(*styleCell(*pane)), ElementsAre(styleCell(*pane)->animatedImageView()));
  EXPECT_EQ(previewWidth(*styleCell(*pane)), kFirstWidth + 1);
  EXPECT_THAT(takeLog(), ElementsAre("test!", "test!"));
  EXPECT_EQ(stored("systemwideStyle"), Value(1));
  EXPECT_EQ(stored("systemwideStyleText"), Value("Hold"));
}

TEST_F(SystemwidePaneTest, TheLineIsLoggedBeforeAnythingIsWritten) {
  const auto pane = openPane();
  take();
  choose(*pane, 0);
  const auto events = take();
  ASSERT_FALSE(events.empty());
  EXPECT_EQ(events.front(), Event(LogEvent{"test!"}));
}

TEST_F(SystemwidePaneTest, AModeThatNoSegmentStandsForSelectsNoneIsLeftAsItIsAndIsLogged) {
  for (const auto& value : valuesWithoutSegment()) {
    files->dictionaries.clear();
    store("systemwideStyle", value);
    const auto pane = openPane();
    EXPECT_EQ(styleCell(*pane)->segmentedControl()->selectedSegmentIndex(),
              UISegmentedControl::kNoSegment);
    EXPECT_THAT(take(), ElementsAre(Event(LogEvent{"test!"})));
    EXPECT_EQ(files->dictionaries[kSettings], (PropertyListDictionary{{"systemwideStyle", value}}));
    EXPECT_EQ(previewWidth(*styleCell(*pane)), 0);
    inner->popViewControllerAnimated(false);
  }
}

TEST_F(SystemwidePaneTest, ModesOfOtherTypesCountByTheirInteger) {
  for (const auto& [value, mode] :
       {std::pair<Value, int>("1", 1), {"Show always", 0}, {1.75, 1}, {true, 1}}) {
    files->dictionaries.clear();
    store("systemwideStyle", value);
    const auto pane = openPane();
    EXPECT_EQ(styleCell(*pane)->segmentedControl()->selectedSegmentIndex(), mode);
    EXPECT_EQ(stored("systemwideStyle"), Value(mode));
    inner->popViewControllerAnimated(false);
  }
}

TEST_F(SystemwidePaneTest, EachFieldStoresUnderItsOwnKey) {
  const auto pane = openPane();
  type(*pane, kCustomRow, "Really?");
  type(*pane, kTwoButtonRow, "How?");
  EXPECT_EQ(stored("customText"), Value("Really?"));
  EXPECT_EQ(stored("systemWideTwoButtonText"), Value("How?"));
}

TEST_F(SystemwidePaneTest, CommittingAnUnchangedTextWritesAndNotifiesAgain) {
  store("customText", "Sure?");
  const auto pane = openPane();
  take();
  type(*pane, kCustomRow, "Sure?");
  EXPECT_THAT(takePosts(), ElementsAre(kChanged));
}

TEST_F(SystemwidePaneTest, TheGetterGivesTheStoredValueOrNothingWhateverTheRowsDefault) {
  const auto pane = openPane();
  const auto row = pane->specifiers()[kCustomRow];
  row->setPropertyForKey(Value("other"), "default");
  EXPECT_EQ(pane->readPreferenceValue(*row), std::nullopt);
  store("customText", 5);
  EXPECT_EQ(pane->readPreferenceValue(*row), Value(5));
  EXPECT_EQ(row->value(), Value(5));
}

TEST_F(SystemwidePaneTest, TextsOfOtherTypesLeaveTheFieldEmpty) {
  store("customText", PropertyListArray{"a"});
  store("systemWideTwoButtonText", 7);
  const auto pane = openPane();
  EXPECT_EQ(field(*pane, kCustomRow)->text(), "");
  EXPECT_EQ(stored("customText"), Value(PropertyListArray{"a"}));
  EXPECT_EQ(stored("systemWideTwoButtonText"), Value(7));
}

TEST_F(SystemwidePaneTest, ATapInThePaneClosesTheKeyboardAndCommitsTheText) {
  const auto pane = openPane();
  const auto edited = field(*pane, kTwoButtonRow);
  edited->becomeFirstResponder();
  edited->edit("How?");
  ASSERT_THAT(pane->view()->gestureRecognizers(), SizeIs(1));
  pane->view()->gestureRecognizers().front()->recognize();
  EXPECT_FALSE(edited->isFirstResponder());
  EXPECT_EQ(UITextField::firstResponder(), nullptr);
  EXPECT_EQ(stored("systemWideTwoButtonText"), Value("How?"));
}

TEST_F(SystemwidePaneTest, TheTapStillReachesTheRowUnderIt) {
  const auto pane = openPane();
  EXPECT_FALSE(pane->view()->gestureRecognizers().front()->cancelsTouchesInView());
}

TEST_F(SystemwidePaneTest, ThereIsOneRecogniserWhateverIsLoadedFirst) {
  const auto rowsFirst = allocInit<QDSystemwideStyleSelectionController>();
  rowsFirst->specifiers();
  inner->pushViewControllerAnimated(rowsFirst, false);
  layOut();
  const auto viewFirst = allocInit<QDSystemwideStyleSelectionController>();
  viewFirst->view();
  EXPECT_THAT(viewFirst->view()->gestureRecognizers(), IsEmpty());
  inner->pushViewControllerAnimated(viewFirst, false);
  layOut();
  for (const auto& pane : {rowsFirst, viewFirst}) {
    const auto rows = pane->specifiers();
    EXPECT_THAT(pane->view()->gestureRecognizers(), SizeIs(1));
    EXPECT_EQ(pane->specifiers(), rows);
    EXPECT_THAT(pane->view()->gestureRecognizers(), SizeIs(1));
  }
}

TEST_F(SystemwidePaneTest, TheVeryFirstListIsTheOneThatIsKept) {
  const auto pane = allocInit<QDSystemwideStyleSelectionController>();
  const auto first = pane->specifiers();
  ASSERT_THAT(first, SizeIs(5));
  EXPECT_EQ(pane->specifiers(), first);
}

TEST_F(SystemwidePaneTest, EachPreviewIsDescribedInASentenceOfItsOwn) {
  const auto pane = openPane();
  const auto description = [&](int mode) {
    choose(*pane, mode);
    return styleCell(*pane)->animatedImageView()->accessibilityLabel();
  };
  EXPECT_EQ(description(0),
            "Animation: on the call screen a finger swipes sideways from the Call button, and the "
            "Call Anonymously button slides out beside it.");
  EXPECT_EQ(description(1),
            "Animation: on the call screen a finger rests on the Call button until the Call "
            "Anonymously button comes out beside it.");
  EXPECT_EQ(description(2),
            "Animation: the call screen shows both buttons, and a finger taps the Call Anonymously "
            "button.");
}

struct SystemwideMeasures {
  CGFloat width;
  float previewHeight;
  float height;

  friend std::ostream& operator<<(std::ostream& out, const SystemwideMeasures& measures) {
    return out << measures.width << " points";
  }
};

class SystemwideMeasuresTest : public SystemwidePaneTest,
                               public testing::WithParamInterface<SystemwideMeasures> {};

TEST_P(SystemwideMeasuresTest, FramesAndHeightAreThoseOfSinglePrecision) {
  const auto& expected = GetParam();
  width = expected.width;
  const auto pane = openPane();
  const auto cell = styleCell(*pane);
  const auto w = static_cast<float>(expected.width);
  EXPECT_THAT(single(cell->segmentedControl()->frame()), ElementsAre(20, 15, w - 40, 35));
  EXPECT_THAT(single(cell->seperator()->frame()), ElementsAre(0, 64, w, 1));
  EXPECT_THAT(single(cell->animatedImageView()->frame()),
              ElementsAre(40, 65, w - 80, expected.previewHeight));
  EXPECT_EQ(cell->preferredHeightForWidth(expected.width), expected.height);
  EXPECT_EQ(cell->frame().size.height, expected.height);
  EXPECT_TRUE(cell->isUserInteractionEnabled());
  EXPECT_EQ(cellAt(*pane, kCustomRow)->frame().size.height, 44) << "the fields' own height";
}

INSTANTIATE_TEST_SUITE_P(Widths, SystemwideMeasuresTest,
                         testing::Values(SystemwideMeasures{280, 364.29874F, 440.29874F},
                                         SystemwideMeasures{320, 437.15848F, 513.15845F},
                                         SystemwideMeasures{375, 537.34064F, 613.34064F},
                                         SystemwideMeasures{414, 608.37885F, 684.37885F},
                                         SystemwideMeasures{768.5, 1254.0984F, 1330.0984F}));

TEST_F(SystemwidePaneTest, ACellByItselfHasItsReuseIdentifierAndTheDefaultStyle) {
  const auto pane = openPane();
  const auto cell = alloc<QDSystemwideStyleCell>();
  EXPECT_TRUE(cell->initWithSpecifier(pane->specifiers()[kStyleRow]));
  EXPECT_EQ(cell->reuseIdentifier(), "QDSystemwideStyleCell");
  EXPECT_EQ(cell->detailTextLabel(), nullptr);
}

}  // namespace
