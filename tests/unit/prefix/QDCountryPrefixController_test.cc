#include "prefix/QDCountryPrefixController.h"

#include <algorithm>
#include <utility>

#include "platform/preferences/PSEditableTableCell.h"
#include "platform/preferences/PSTextFieldSpecifier.h"
#include "prefix/prefixTableCell.h"
#include "prefix/prefixes.h"
#include "tests/support/PaneTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Value = PropertyListValue;

constexpr int kCustomRow = 36;
constexpr int kField = 37;
constexpr const char* kCustom = "Custom (enter below)";
constexpr const char* kChanged = "me.orlanvey.quietDial/PreferencesChanged";

class PrefixPaneTest : public PaneTest {
 protected:
  std::shared_ptr<QDCountryPrefixController> openPane() {
    return open<QDCountryPrefixController>();
  }

  void tap(const std::shared_ptr<QDCountryPrefixController>& pane, const std::string& country) {
    pane->selectSpecifier(pane->specifierForID(country));
    layOut();
  }

  static int indexOf(QDCountryPrefixController& pane, const std::string& name) {
    const auto& rows = pane.specifiers();
    return static_cast<int>(
        std::ranges::find(rows, name, [](const auto& row) { return row->name(); }) - rows.begin());
  }

  // Names of the rows that say, by the number 1, that they are checked and whose cell shows the
  // mark; both must agree, and every other row of that kind says 0.
  static std::vector<std::string> checkedRows(QDCountryPrefixController& pane) {
    std::vector<std::string> names;
    for (int index = 0; index < static_cast<int>(pane.specifiers().size()); ++index) {
      const auto row = pane.specifierAtIndex(index);
      const auto cell = cellAt(pane, index);
      const bool shown = cell && cell->accessoryType() == UITableViewCellAccessoryType::kCheckmark;
      if (cast<prefixTableCell>(cell)) {
        EXPECT_EQ(row->plistForKey("checked"), Value(shown ? 1 : 0)) << row->name();
      }
      if (shown) {
        names.push_back(row->name());
      }
    }
    return names;
  }

  // The keys that the writes since the last take() changed, in order.
  std::vector<std::string> takeWrittenKeys(PropertyListDictionary before) {
    std::vector<std::string> keys;
    for (const auto& event : take()) {
      if (const auto* write = std::get_if<WriteEvent>(&event)) {
        for (const auto& [key, value] : write->settings) {
          const auto former = before.find(key);
          if (former == before.end() || !(former->second == value)) {
            keys.push_back(key);
          }
        }
        before = write->settings;
      }
    }
    return keys;
  }
};

TEST_F(PrefixPaneTest, FirstOpeningWritesTheThreeDefaultsInOrderAndChecksTheLastCountry) {
  const auto pane = openPane();
  EXPECT_EQ(files->dictionaries[kSettings],
            (PropertyListDictionary{{"selectedCountry", "Most other counties"},
                                    {"selectedPrefix", "#31#"},
                                    {"customPrefix", ""}}));
  EXPECT_THAT(takeWrittenKeys({}),
              ElementsAre("selectedCountry", "selectedPrefix", "customPrefix"));
  EXPECT_THAT(checkedRows(*pane), ElementsAre("Most other counties"));
  EXPECT_EQ(pane->selectedSpecifier(), pane->specifierAtIndex(34));
}

TEST_F(PrefixPaneTest, FirstOpeningNotifiesThreeTimes) {
  openPane();
  EXPECT_THAT(takePosts(), ElementsAre(kChanged, kChanged, kChanged));
}

TEST_F(PrefixPaneTest, EachKeyIsDefaultedOnItsOwn) {
  store("selectedCountry", "Canada");
  store("customPrefix", "9");
  openPane();
  EXPECT_THAT(takePosts(), ElementsAre(kChanged));
  EXPECT_EQ(stored("selectedPrefix"), Value("#31#"));
  EXPECT_EQ(stored("selectedCountry"), Value("Canada"));
}

TEST_F(PrefixPaneTest, OpeningAgainWritesNothing) {
  openPane();
  inner->popViewControllerAnimated(false);
  take();
  openPane();
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(PrefixPaneTest, TheListIsHeaderCountriesFooterCustomRowAndField) {
  const auto pane = openPane();
  const auto& rows = pane->specifiers();
  ASSERT_EQ(rows.size(), 38U);
  EXPECT_EQ(rows[0]->cellType(), PSCellType::kGroup);
  EXPECT_EQ(rows[0]->name(), "Prefixes");
  for (std::size_t index = 0; index < prefixes.size(); ++index) {
    const auto& row = rows[index + 1];
    EXPECT_EQ(row->name(), prefixes[index].first);
    EXPECT_EQ(row->identifier(), prefixes[index].first);
    EXPECT_EQ(row->textForKey("detailText"), prefixes[index].second);
    EXPECT_EQ(row->cellType(), PSCellType::kListItem);
    EXPECT_EQ(row->classForKey("cellClass"), &prefixTableCell::classObject);
    EXPECT_EQ(row->action(), "cellSelected:");
    EXPECT_EQ(row->detail(), "");
  }
  EXPECT_EQ(rows[35]->cellType(), PSCellType::kGroup);
  EXPECT_EQ(rows[35]->name(), "");
  EXPECT_EQ(rows[35]->textForKey("footerText"),
            "When none of the prefix codes above work for you, please search google for the right "
            "prefix code "
            "and enter it above.\n\nIf your country is not listed above and you know the prefix "
            "code, please "
            "let us know and we'll try to add it in the next update. ");
  EXPECT_EQ(rows[36]->name(), kCustom);
  EXPECT_EQ(rows[36]->cellType(), PSCellType::kTitleValue);
  EXPECT_EQ(rows[36]->propertyForKey("detailText"), std::nullopt);
  EXPECT_EQ(rows[36]->value(), std::nullopt);
  EXPECT_EQ(rows[37]->name(), "");
  const auto field = cast<PSTextFieldSpecifier>(rows[37]);
  ASSERT_TRUE(field);
  EXPECT_EQ(field->cellType(), PSCellType::kEditText);
  EXPECT_EQ(field->placeholder(), "Enter your custom prefix here");
  EXPECT_EQ(field->keyboardType(), UIKeyboardType::kPhonePad);
  EXPECT_EQ(field->autoCaps(), UITextAutocapitalizationType::kNone);
  EXPECT_EQ(field->autoCorrection(), UITextAutocorrectionType::kNo);
}

TEST_F(PrefixPaneTest, TheRowsAreBuiltOnce) {
  const auto pane = openPane();
  const PSSpecifiers before = pane->specifiers();
  tap(pane, "Canada");
  EXPECT_EQ(pane->specifiers(), before);
}

TEST_F(PrefixPaneTest, ItsOperationsAreKnownByTheirSelectors) {
  const auto pane = openPane();
  for (const char* selector :
       {"getValueForSpecifier:", "setValue:forSpecifier:", "cellSelected:"}) {
    EXPECT_TRUE(pane->respondsToSelector(selector)) << selector;
  }
}

TEST_F(PrefixPaneTest, TappingCanadaMovesTheMarkAndStoresBothKeys) {
  const auto pane = openPane();
  tap(pane, "Canada");
  EXPECT_THAT(checkedRows(*pane), ElementsAre("Canada"));
  EXPECT_EQ(stored("selectedCountry"), Value("Canada"));
  EXPECT_EQ(stored("selectedPrefix"), Value("*67"));
}

TEST_F(PrefixPaneTest, TheCountryIsWrittenBeforeThePrefix) {
  const auto pane = openPane();
  take();
  const auto before = files->dictionaries[kSettings];
  tap(pane, "Canada");
  EXPECT_THAT(takeWrittenKeys(before), ElementsAre("selectedCountry", "selectedPrefix"));
}

TEST_F(PrefixPaneTest, TheBlankOfTheUKIsStored) {
  const auto pane = openPane();
  tap(pane, "UK ");
  EXPECT_EQ(stored("selectedCountry"), Value("UK "));
  EXPECT_EQ(stored("selectedPrefix"), Value("141"));
}

TEST_F(PrefixPaneTest, TheBlankOfAustraliasPrefixIsStored) {
  const auto pane = openPane();
  tap(pane, "Australia");
  EXPECT_EQ(stored("selectedPrefix"), Value("#31# "));
}

TEST_F(PrefixPaneTest, TheBlanksComeThroughIntoTitlesDetailTextsAndStoredValues) {
  const auto pane = openPane();
  for (const auto& [country, prefix] :
       {std::pair("UK ", "141"), std::pair("Australia", "#31# "), std::pair("Pakistan", "*32# ")}) {
    const auto index = indexOf(*pane, country);
    EXPECT_EQ(cellAt(*pane, index)->textLabel()->text(), country);
    EXPECT_EQ(cellAt(*pane, index)->detailTextLabel()->text(), prefix);
    tap(pane, country);
    EXPECT_EQ(stored("selectedCountry"), Value(country));
    EXPECT_EQ(stored("selectedPrefix"), Value(prefix));
  }
}

TEST_F(PrefixPaneTest, IrelandAndTheRepublicOfIrelandAreTwoRows) {
  const auto pane = openPane();
  tap(pane, "Ireland");
  EXPECT_THAT(checkedRows(*pane), ElementsAre("Ireland"));
  EXPECT_EQ(stored("selectedPrefix"), Value("141"));
  tap(pane, "Republic of Ireland");
  EXPECT_THAT(checkedRows(*pane), ElementsAre("Republic of Ireland"));
  EXPECT_EQ(stored("selectedPrefix"), Value("#31#"));
}

TEST_F(PrefixPaneTest, TheMarkFollowsTheCountryHoweverManyShareItsPrefix) {
  store("selectedCountry", "Sweden");
  EXPECT_THAT(checkedRows(*openPane()), ElementsAre("Sweden"));
}

TEST_F(PrefixPaneTest, TypingWhileACountryIsChosenOnlyKeepsTheText) {
  const auto pane = openPane();
  tap(pane, "Canada");
  take();
  type(*pane, kField, "*31#");
  EXPECT_EQ(stored("customPrefix"), Value("*31#"));
  EXPECT_EQ(stored("selectedPrefix"), Value("*67"));
  EXPECT_THAT(takePosts(), ElementsAre(kChanged));
}

TEST_F(PrefixPaneTest, TheCustomRowPutsTheTypedPrefixInForce) {
  const auto pane = openPane();
  type(*pane, kField, "*31#");
  tap(pane, kCustom);
  EXPECT_EQ(stored("selectedCountry"), Value(kCustom));
  EXPECT_EQ(stored("selectedPrefix"), Value("*31#"));
  EXPECT_THAT(checkedRows(*pane), ElementsAre(kCustom));
}

TEST_F(PrefixPaneTest, TypingWhileTheCustomRowIsChosenIsInForceAtOnceAndWrittenFirst) {
  const auto pane = openPane();
  tap(pane, kCustom);
  take();
  const auto before = files->dictionaries[kSettings];
  type(*pane, kField, "#30#");
  EXPECT_EQ(stored("selectedPrefix"), Value("#30#"));
  EXPECT_EQ(stored("customPrefix"), Value("#30#"));
  EXPECT_THAT(takeWrittenKeys(before), ElementsAre("selectedPrefix", "customPrefix"));
}

TEST_F(PrefixPaneTest, TheCustomRowWithNothingTypedStoresTheEmptyText) {
  const auto pane = openPane();
  tap(pane, kCustom);
  EXPECT_EQ(stored("selectedPrefix"), Value(""));
}

TEST_F(PrefixPaneTest, TappingTheCheckedRowKeepsItCheckedAndWritesBothKeysAgain) {
  const auto pane = openPane();
  tap(pane, "Canada");
  take();
  tap(pane, "Canada");
  EXPECT_THAT(checkedRows(*pane), ElementsAre("Canada"));
  const auto file = files->dictionaries[kSettings];
  EXPECT_EQ(stored("selectedCountry"), Value("Canada"));
  EXPECT_EQ(stored("selectedPrefix"), Value("*67"));
  const WriteEvent write{kSettings, file, true};
  const PostEvent post{NotificationCall::kCFNotificationCenter, kChanged};
  EXPECT_THAT(take(), ElementsAre(write, post, write, post));
}

TEST_F(PrefixPaneTest, WritingTheStoredValueAgainWritesAndNotifies) {
  const auto pane = openPane();
  take();
  pane->setPreferenceValueForKey("#31#", "selectedPrefix");
  EXPECT_THAT(take(), ElementsAre(WriteEvent{kSettings, files->dictionaries[kSettings], true},
                                  PostEvent{NotificationCall::kCFNotificationCenter, kChanged}));
}

TEST_F(PrefixPaneTest, ReadingAnAbsentKeyGivesNothing) {
  const auto pane = openPane();
  EXPECT_EQ(pane->readPreferenceValue("dialerMode"), std::nullopt);
  store("dialerMode", 2);
  EXPECT_EQ(pane->readPreferenceValue("dialerMode"), Value(2));
}

TEST_F(PrefixPaneTest, AStoredCustomRowIsCheckedWhenThePaneOpens) {
  store("selectedCountry", kCustom);
  EXPECT_THAT(checkedRows(*openPane()), ElementsAre(kCustom));
}

TEST_F(PrefixPaneTest, AStoredCountryThatIsNoRowChecksNothingUntilATap) {
  for (const char* country : {"UK", "uk ", "Wales", "custom (enter below)", ""}) {
    store("selectedCountry", country);
    const auto pane = openPane();
    EXPECT_THAT(checkedRows(*pane), IsEmpty());
    EXPECT_EQ(pane->selectedSpecifier(), nullptr);
    EXPECT_EQ(stored("selectedCountry"), Value(country));
    tap(pane, "US");
    EXPECT_THAT(checkedRows(*pane), ElementsAre("US"));
  }
}

TEST_F(PrefixPaneTest, TheFieldShowsTheStoredPrefixWhenThePaneOpens) {
  store("customPrefix", "*99");
  const auto pane = openPane();
  EXPECT_EQ(cast<PSEditableTableCell>(cellAt(*pane, kField))->textField()->text(), "*99");
}

TEST_F(PrefixPaneTest, TheFieldIsEmptyWithItsPlaceholderWhenNothingIsStored) {
  const auto pane = openPane();
  const auto field = cast<PSEditableTableCell>(cellAt(*pane, kField))->textField();
  EXPECT_EQ(field->text(), "");
  EXPECT_EQ(field->placeholder(), "Enter your custom prefix here");
}

TEST_F(PrefixPaneTest, TheTypedTextIsStoredUntrimmed) {
  const auto pane = openPane();
  type(*pane, kField, "  *31# x ");
  EXPECT_EQ(stored("customPrefix"), Value("  *31# x "));
}

TEST_F(PrefixPaneTest, LeavingThePaneCommitsWhatIsBeingTypedOnce) {
  const auto pane = openPane();
  const auto field = cast<PSEditableTableCell>(cellAt(*pane, kField))->textField();
  field->becomeFirstResponder();
  field->edit("*12");
  take();
  inner->popViewControllerAnimated(false);
  EXPECT_EQ(stored("customPrefix"), Value("*12"));
  EXPECT_THAT(takePosts(), ElementsAre(kChanged));
}

TEST_F(PrefixPaneTest, AFieldThatWasOnlyVisitedCommitsNothing) {
  const auto pane = openPane();
  const auto field = cast<PSEditableTableCell>(cellAt(*pane, kField))->textField();
  take();
  field->becomeFirstResponder();
  field->resignFirstResponder();
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(PrefixPaneTest, AStoredNumberKeepsItsTypeWhenItComesIntoForce) {
  store("customPrefix", 31);
  const auto pane = openPane();
  tap(pane, kCustom);
  const auto value = stored("selectedPrefix");
  ASSERT_TRUE(value);
  EXPECT_TRUE(value->get<std::int64_t>());
}

TEST_F(PrefixPaneTest, ThePropertiesChangeEvenWhenTheFileCannotBeWritten) {
  const auto pane = openPane();
  files->failsToWrite = true;
  tap(pane, "Canada");
  EXPECT_EQ(pane->selectedCountry(), Value("Canada"));
  EXPECT_EQ(pane->selectedPrefix(), Value("*67"));
  EXPECT_EQ(stored("selectedPrefix"), Value("#31#"));
}

TEST_F(PrefixPaneTest, SettingAPropertyChangesItAlone) {
  const auto pane = openPane();
  const auto canada = pane->specifierForID("Canada");
  take();
  pane->setSelectedSpecifier(canada);
  pane->setSelectedCountry("Canada");
  pane->setSelectedPrefix("*67");
  pane->setCustomPrefix("*99");
  EXPECT_EQ(pane->selectedSpecifier(), canada);
  EXPECT_EQ(pane->selectedCountry(), Value("Canada"));
  EXPECT_EQ(pane->selectedPrefix(), Value("*67"));
  EXPECT_EQ(pane->customPrefix(), Value("*99"));
  EXPECT_THAT(take(), IsEmpty());
  layOut();
  EXPECT_THAT(checkedRows(*pane), ElementsAre("Most other counties"));
}

TEST_F(PrefixPaneTest, ATapTakesTheMarkFromTheSpecifierThatWasSet) {
  const auto pane = openPane();
  const auto canada = pane->specifierForID("Canada");
  canada->setPropertyForKey(Value(1), "checked");
  pane->reloadSpecifier(canada);
  pane->setSelectedSpecifier(canada);
  tap(pane, "US");
  EXPECT_THAT(checkedRows(*pane), ElementsAre("US", "Most other counties"));
  pane->setSelectedSpecifier(nullptr);
  tap(pane, "Canada");
  EXPECT_THAT(checkedRows(*pane), ElementsAre("Canada", "US", "Most other counties"));
}

TEST_F(PrefixPaneTest, TheCountryThatWasSetDecidesWhetherTypingIsInForce) {
  const auto pane = openPane();
  pane->setSelectedCountry(kCustom);
  type(*pane, kField, "*31#");
  EXPECT_EQ(stored("selectedPrefix"), Value("*31#"));
  EXPECT_EQ(stored("selectedCountry"), Value("Most other counties"));
}

TEST_F(PrefixPaneTest, TheCustomPrefixThatWasSetIsWhatTheCustomRowPutsInForce) {
  const auto pane = openPane();
  pane->setCustomPrefix("*99");
  EXPECT_EQ(pane->specifierAtIndex(kField)->value(), Value("*99"));
  tap(pane, kCustom);
  EXPECT_EQ(stored("selectedPrefix"), Value("*99"));
  EXPECT_EQ(pane->selectedPrefix(), Value("*99"));
}

TEST_F(PrefixPaneTest, EveryRowHasTheListsHeight) {
  const auto pane = openPane();
  for (int index = 1; index < 35; ++index) {
    EXPECT_EQ(cellAt(*pane, index)->frame().size.height, 44);
  }
}

TEST_F(PrefixPaneTest, TheGetterAnswersEveryRowWithTheTypedPrefix) {
  store("customPrefix", "*99");
  const auto pane = openPane();
  EXPECT_EQ(pane->specifierAtIndex(1)->value(), Value("*99"));
  EXPECT_EQ(pane->specifierAtIndex(kField)->value(), Value("*99"));
  EXPECT_EQ(pane->specifierAtIndex(kCustomRow)->value(), std::nullopt);
}

TEST_F(PrefixPaneTest, TheSetterTakesWhatAnyRowGivesAsTheTypedPrefix) {
  const auto pane = openPane();
  pane->specifierForID("Canada")->setValue("*98");
  EXPECT_EQ(pane->customPrefix(), Value("*98"));
  EXPECT_EQ(stored("customPrefix"), Value("*98"));
  EXPECT_EQ(stored("selectedPrefix"), Value("#31#"));
}

}  // namespace
