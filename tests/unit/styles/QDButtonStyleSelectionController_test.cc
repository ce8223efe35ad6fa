#include "styles/QDButtonStyleSelectionController.h"

#include <cmath>

#include "styles/QDButtonPickerCell.h"
#include "tests/support/PaneTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Value = PropertyListValue;

constexpr const char* kChanged = "me.orlanvey.quietDial/PreferencesChanged";
constexpr int kDialRow = 1;
constexpr int kSystemwideRow = 3;
constexpr UIColor kBlue{0, 0.478, 1, 1};

class ButtonPaneTest : public PaneTest {
 protected:
  ButtonPaneTest() {
    for (int number = 1; number <= 4; ++number) {
      const auto name = std::string(kBundle) + "/GrayButton" + std::to_string(number);
      pictures->sizes[name + "@2x.png"] = {144, 144};
    }
  }

  std::shared_ptr<QDButtonStyleSelectionController> openPane() {
    return open<QDButtonStyleSelectionController>();
  }

  static std::shared_ptr<QDButtonPickerCell> picker(PSListController& pane, int row) {
    return cast<QDButtonPickerCell>(cellAt(pane, row));
  }

  void press(PSListController& pane, int row, int number) {
    picker(pane, row)
        ->buttons()
        .at(number - 1)
        ->sendActionsForControlEvents(UIControlEvent::kTouchUpInside);
    layOut();
  }

  // The numbers of the blue buttons; every other one has to be light grey.
  static std::vector<int> blueButtons(const QDButtonPickerCell& cell) {
    std::vector<int> numbers;
    int number = 0;
    for (const auto& button : cell.buttons()) {
      ++number;
      if (button->tintColor() == kBlue) {
        numbers.push_back(number);
      } else {
        EXPECT_EQ(button->tintColor(), UIColor::lightGrayColor()) << number;
      }
      EXPECT_EQ(button->accessibilitySelected(), button->tintColor() == kBlue) << number;
    }
    return numbers;
  }

  // The dictionaries written since the last take.
  std::vector<PropertyListDictionary> takeWrites() {
    std::vector<PropertyListDictionary> writes;
    for (const auto& event : take()) {
      if (const auto* write = std::get_if<WriteEvent>(&event)) {
        writes.push_back(write->settings);
      }
    }
    return writes;
  }

  static std::vector<float> places(const QDButtonPickerCell& cell) {
    std::vector<float> places;
    for (const auto& button : cell.buttons()) {
      const CGRect frame = button->frame();
      EXPECT_EQ(frame.origin.y, 10);
      EXPECT_EQ(frame.size, (CGSize{72, 72}));
      EXPECT_EQ(frame.origin.x, static_cast<float>(frame.origin.x)) << "single precision";
      places.push_back(static_cast<float>(frame.origin.x));
    }
    return places;
  }
};

TEST_F(ButtonPaneTest, TheRowsAreTwoGroupsWithOnePickerEach) {
  const auto pane = openPane();
  const auto& rows = pane->specifiers();
  ASSERT_EQ(rows.size(), 4U);
  EXPECT_EQ(rows[0]->name(), "Dial Button Style");
  EXPECT_EQ(rows[2]->name(), "Systemwide BUtton Style");
  EXPECT_EQ(rows[0]->textForKey("footerText"),
            "Here you can select a style for the Call Anonymously button. It will automaticly be "
            "used in the Phone Application.");
  EXPECT_EQ(rows[2]->textForKey("footerText"),
            "Here you can select a style for the Call Anonymously button. It will automaticly be "
            "used in the systemwide screen.");
  for (const int group : {0, 2}) {
    EXPECT_EQ(rows[group]->cellType(), PSCellType::kGroup);
    EXPECT_EQ(rows[group]->properties().size(), 2U);
    EXPECT_EQ(rows[group]->plistForKey("alignment"), Value(1));
  }
  for (const auto& [index, key] : {std::pair(1, "dialButtonStyle"), {3, "systemwideButtonStyle"}}) {
    const auto& row = rows[index];
    EXPECT_EQ(row->name(), "");
    EXPECT_EQ(row->cellType(), PSCellType::kDefault);
    EXPECT_EQ(row->target(), pane);
    EXPECT_EQ(row->value(), std::nullopt);
    EXPECT_EQ(row->properties().size(), 3U);
    EXPECT_EQ(row->classForKey("cellClass"), &QDButtonPickerCell::classObject);
    EXPECT_EQ(row->plistForKey("dynamicHeight"), Value(true));
    EXPECT_EQ(row->textForKey("key"), key);
  }
}

TEST_F(ButtonPaneTest, TheRowListIsBuiltOnce) {
  const auto pane = openPane();
  const auto rows = pane->specifiers();
  EXPECT_EQ(pane->specifiers(), rows);
}

TEST_F(ButtonPaneTest, FirstOpeningWritesBothDefaultsAndTheSummaryAfterEach) {
  const auto pane = openPane();
  EXPECT_THAT(takeWrites(),
              ElementsAre(PropertyListDictionary{{"dialButtonStyle", 1}},
                          PropertyListDictionary{{"dialButtonStyle", 1},
                                                 {"buttonStyleText", "Style 1 & 0"}},
                          PropertyListDictionary{{"dialButtonStyle", 1},
                                                 {"systemwideButtonStyle", 1},
                                                 {"buttonStyleText", "Style 1 & 0"}},
                          PropertyListDictionary{{"dialButtonStyle", 1},
                                                 {"systemwideButtonStyle", 1},
                                                 {"buttonStyleText", "Style 1 & 1"}}));
  EXPECT_THAT(blueButtons(*picker(*pane, kDialRow)), ElementsAre(1));
  EXPECT_THAT(blueButtons(*picker(*pane, kSystemwideRow)), ElementsAre(1));
}

TEST_F(ButtonPaneTest, EachWriteOfTheFirstOpeningIsFollowedByOneNotification) {
  openPane();
  EXPECT_THAT(takePosts(), ElementsAre(kChanged, kChanged, kChanged, kChanged));
}

TEST_F(ButtonPaneTest, AStoredDialStyleOfThreeIsShownAndNotWritten) {
  store("dialButtonStyle", 3);
  store("systemwideButtonStyle", 1);
  store("buttonStyleText", "old");
  const auto pane = openPane();
  EXPECT_THAT(blueButtons(*picker(*pane, kDialRow)), ElementsAre(3));
  // The summary differs, so it alone is written, once.
  EXPECT_THAT(takeWrites(),
              ElementsAre(PropertyListDictionary{{"dialButtonStyle", 3},
                                                 {"systemwideButtonStyle", 1},
                                                 {"buttonStyleText", "Style 3 & 1"}}));
}

TEST_F(ButtonPaneTest, OpeningAgainWithEverythingStoredWritesAndPostsNothing) {
  store("dialButtonStyle", 3);
  store("systemwideButtonStyle", 2);
  store("buttonStyleText", "Style 3 & 2");
  const auto pane = openPane();
  EXPECT_THAT(take(), IsEmpty());
  EXPECT_THAT(blueButtons(*picker(*pane, kDialRow)), ElementsAre(3));
  EXPECT_THAT(blueButtons(*picker(*pane, kSystemwideRow)), ElementsAre(2));
}

TEST_F(ButtonPaneTest, AStoredSystemwideStyleOfSevenShowsNoButtonAndBecomesOne) {
  store("systemwideButtonStyle", 7);
  const auto pane = openPane();
  EXPECT_THAT(blueButtons(*picker(*pane, kSystemwideRow)), IsEmpty());
  EXPECT_EQ(stored("systemwideButtonStyle"), Value(1));
  EXPECT_EQ(stored("buttonStyleText"), Value("Style 1 & 1"));
}

TEST_F(ButtonPaneTest, ValuesThatAreNoChoiceShowNoButtonAndBecomeOne) {
  const Value kValues[] = {0,
                           5,
                           -1,
                           std::int64_t{1} << 40,
                           (std::int64_t{1} << 32) + 1,
                           INT64_MIN,
                           UINT64_MAX,
                           false,
                           0.9,
                           1e300,
                           std::nan(""),
                           "",
                           "blue",
                           PropertyListArray{1},
                           PropertyListDictionary{{"a", 1}},
                           PropertyListData{std::byte{1}},
                           PropertyListDate{1}};
  for (const auto& value : kValues) {
    files->dictionaries.clear();
    store("dialButtonStyle", value);
    const auto pane = openPane();
    EXPECT_THAT(blueButtons(*picker(*pane, kDialRow)), IsEmpty());
    EXPECT_EQ(stored("dialButtonStyle"), Value(1));
    EXPECT_EQ(stored("buttonStyleText"), Value("Style 1 & 1"));
    inner->popViewControllerAnimated(false);
  }
}

TEST_F(ButtonPaneTest, ValuesOfOtherTypesCountByTheirInteger) {
  for (const auto& [value, number] :
       {std::pair<Value, int>("3", 3), {"2 of them", 2}, {4.75, 4}, {true, 1}}) {
    files->dictionaries.clear();
    store("dialButtonStyle", value);
    const auto pane = openPane();
    EXPECT_THAT(blueButtons(*picker(*pane, kDialRow)), ElementsAre(number));
    // Stored as it was where it is equal to the integer, else as the integer.
    EXPECT_EQ(stored("dialButtonStyle"), Value(number));
    inner->popViewControllerAnimated(false);
  }
}

TEST_F(ButtonPaneTest, ABooleanThatEqualsTheChoiceStaysABoolean) {
  store("dialButtonStyle", true);
  openPane();
  EXPECT_TRUE(stored("dialButtonStyle")->get<bool>());
}

TEST_F(ButtonPaneTest, TheSummaryHoldsANumberOf32Bits) {
  store("dialButtonStyle", 2);
  store("systemwideButtonStyle", std::int64_t{1} << 40);
  // A cell by itself: the other one would put its own key right.
  const auto row = QDButtonStyleSelectionController::classObject.alloc();
  const auto pane = cast<QDButtonStyleSelectionController>(row);
  pane->init();
  const auto cell = alloc<QDButtonPickerCell>();
  cell->initWithSpecifier(pane->specifiers()[kDialRow]);
  EXPECT_EQ(stored("buttonStyleText"), Value("Style 2 & 2147483647"));
}

TEST_F(ButtonPaneTest, APressStoresTheNumberThenTheSummary) {
  const auto pane = openPane();
  take();
  press(*pane, kSystemwideRow, 4);
  EXPECT_THAT(blueButtons(*picker(*pane, kSystemwideRow)), ElementsAre(4));
  EXPECT_THAT(blueButtons(*picker(*pane, kDialRow)), ElementsAre(1));
  EXPECT_THAT(takeWrites(),
              ElementsAre(PropertyListDictionary{{"dialButtonStyle", 1},
                                                 {"systemwideButtonStyle", 4},
                                                 {"buttonStyleText", "Style 1 & 1"}},
                          PropertyListDictionary{{"dialButtonStyle", 1},
                                                 {"systemwideButtonStyle", 4},
                                                 {"buttonStyleText", "Style 1 & 4"}}));
}

TEST_F(ButtonPaneTest, EachOfTheFourButtonsStoresItsOwnNumber) {
  const auto pane = openPane();
  for (const int number : {2, 3, 4, 1}) {
    press(*pane, kDialRow, number);
    EXPECT_EQ(stored("dialButtonStyle"), Value(number));
    EXPECT_THAT(blueButtons(*picker(*pane, kDialRow)), ElementsAre(number));
  }
}

TEST_F(ButtonPaneTest, PressingTheChosenButtonAgainWritesNothing) {
  const auto pane = openPane();
  take();
  press(*pane, kDialRow, 1);
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(ButtonPaneTest, APressWithoutASenderStoresOneAndTintsNothing) {
  store("dialButtonStyle", 3);
  const auto pane = openPane();
  picker(*pane, kDialRow)->buttonPressed(nullptr);
  EXPECT_THAT(blueButtons(*picker(*pane, kDialRow)), IsEmpty());
  EXPECT_EQ(stored("dialButtonStyle"), Value(1));
}

TEST_F(ButtonPaneTest, AnotherButtonAsSenderIsTintedAndCountsAsTheFirst) {
  store("dialButtonStyle", 3);
  const auto pane = openPane();
  const auto stranger = allocInit<UIButton>();
  picker(*pane, kDialRow)->buttonPressed(stranger);
  EXPECT_EQ(stranger->tintColor(), kBlue);
  EXPECT_THAT(blueButtons(*picker(*pane, kDialRow)), IsEmpty());
  EXPECT_EQ(stored("dialButtonStyle"), Value(1));
}

TEST_F(ButtonPaneTest, ThePicturesAreTheFourTemplatesInOrder) {
  const auto pane = openPane();
  int number = 0;
  for (const auto& button : picker(*pane, kDialRow)->buttons()) {
    ++number;
    const auto name = "GrayButton" + std::to_string(number);
    EXPECT_EQ(button->image()->file(), std::string(kBundle) + "/" + name + "@2x.png");
    EXPECT_EQ(button->image()->renderingMode(), UIImageRenderingMode::kAlwaysTemplate);
    EXPECT_EQ(button->accessibilityLabel(), "Button " + std::to_string(number));
    EXPECT_EQ(button->superview(), picker(*pane, kDialRow)->contentView());
  }
}

TEST_F(ButtonPaneTest, AMissingPictureLeavesAButtonThatCanStillBePressed) {
  pictures->sizes.clear();
  const auto pane = openPane();
  EXPECT_EQ(picker(*pane, kDialRow)->buttons()[1]->image(), nullptr);
  press(*pane, kDialRow, 2);
  EXPECT_EQ(stored("dialButtonStyle"), Value(2));
}

TEST_F(ButtonPaneTest, TheButtonsStandWithEqualGapsAtEachWidth) {
  width = 320;
  const auto pane = openPane();
  const auto at = [&](CGFloat newWidth) {
    width = newWidth;
    layOut();
    EXPECT_EQ(picker(*pane, kDialRow)->contentView()->bounds().size.width, newWidth);
    return places(*picker(*pane, kDialRow));
  };
  EXPECT_THAT(at(320), ElementsAre(6.4F, 84.8F, 163.2F, 241.6F));
  EXPECT_THAT(at(375), ElementsAre(17.4F, 106.8F, 196.2F, 285.6F));
  EXPECT_THAT(at(414), ElementsAre(25.2F, 122.4F, 219.6F, 316.8F));
  EXPECT_THAT(at(768.5), ElementsAre(96.1F, 264.2F, 432.3F, 600.4F));
}

TEST_F(ButtonPaneTest, BelowFourButtonsWidthTheGapIsNegativeAndTheButtonsOverlap) {
  width = 280;
  const auto pane = openPane();
  EXPECT_THAT(places(*picker(*pane, kDialRow)), ElementsAre(-1.6F, 68.8F, 139.2F, 209.6F));
}

TEST_F(ButtonPaneTest, TheRowIs92HighAtEachWidth) {
  const auto pane = openPane();
  for (const CGFloat newWidth : {280.0, 320.0, 375.0, 414.0, 768.5}) {
    width = newWidth;
    layOut();
    EXPECT_EQ(picker(*pane, kDialRow)->frame().size.height, 92);
    EXPECT_EQ(picker(*pane, kSystemwideRow)->preferredHeightForWidth(newWidth), 92);
  }
}

TEST_F(ButtonPaneTest, ACellByItselfHasTheReuseIdentifierOfTheDialTabCell) {
  const auto pane = openPane();
  const auto cell = alloc<QDButtonPickerCell>();
  EXPECT_TRUE(cell->initWithSpecifier(pane->specifiers()[kDialRow]));
  EXPECT_EQ(cell->reuseIdentifier(), "QDDialerTabStyleCell");
}

TEST_F(ButtonPaneTest, LayoutMakesTheCellTakeTouches) {
  const auto pane = openPane();
  const auto cell = picker(*pane, kDialRow);
  cell->setUserInteractionEnabled(false);
  cell->setNeedsLayout();
  layOut();
  EXPECT_TRUE(cell->isUserInteractionEnabled());
}

TEST_F(ButtonPaneTest, AFailedWriteStillNotifies) {
  const auto pane = openPane();
  take();
  files->failsToWrite = true;
  press(*pane, kDialRow, 2);
  EXPECT_THAT(takePosts(), ElementsAre(kChanged));
}

}  // namespace
