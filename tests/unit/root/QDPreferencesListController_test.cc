#include "root/QDPreferencesListController.h"

#include <array>
#include <map>
#include <utility>

#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIImageView.h"
#include "platform/uikit/metrics.h"
#include "prefix/QDCountryPrefixController.h"
#include "tests/support/HalfHighCell.h"
#include "tests/support/PaneTest.h"
#include "tests/support/bareRow.h"

extern "C" const ClassTable quietDialPreferencesClasses;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Value = PropertyListValue;

PropertyListDictionary item(const char* label, const char* key, Value otherwise) {
  return {{"cell", "PSLinkCell"},
          {"label", label},
          {"id", label},
          {"key", key},
          {"default", otherwise}};
}

constexpr std::array<const ClassDescription*, 1> kCells{&HalfHighCell::classObject};

class RootPaneTest : public PaneTest {
 protected:
  RootPaneTest() {
    NSBundle::load(kBundle, quietDialPreferencesClasses);
    registerClasses({kCells});
    auto prefix = item("Hide Caller ID Prefix", "selectedPrefix", "#31#");
    prefix.insert_or_assign("detail", "QDCountryPrefixController");
    files->dictionaries[std::string(kBundle) + "/quietDialPreferences.plist"] = {
        {"title", "QuietDial"},
        {"items",
         PropertyListArray{
             prefix,
             PropertyListDictionary{{"cell", "PSGroupCell"}, {"label", "Style"}},
             item("Dial Tab Style", "dialerModeText", "Swipe"),
             item("Number", "dialerMode", 1),
             PropertyListDictionary{
                 {"cell", "PSButtonCell"}, {"label", "Apply"}, {"action", "applyChangedSettings"}},
             PropertyListDictionary{
                 {"cell", "PSLinkCell"}, {"label", "Elsewhere"}, {"detail", "QDNowhereController"}},
             item("Systemwide Call Style", "systemwideStyleText", "Show always"),
             item("Button Style", "buttonStyleText", "Style 1 & 1"),
             PropertyListDictionary{{"cell", "PSLinkCell"},
                                    {"label", "Keyless"},
                                    {"default", "its own"},
                                    {"cellClass", "HalfHighCell"},
                                    {"dynamicHeight", true}},
         }}};
    for (const char* name : {"tallowbyteLogoNavBar", "heart", "gear-white"}) {
      pictures->sizes[std::string(kBundle) + "/" + name + "@2x.png"] = {40, 20};
    }
  }

  std::shared_ptr<QDPreferencesListController> openWithBadge(const Value& badge) {
    const auto entry = bareRow("QuietDial", PSCellType::kLink, "QDPreferencesListController");
    entry->setPropertyForKey(badge, "badgeString");
    return open<QDPreferencesListController>(entry);
  }
};

TEST_F(RootPaneTest, TheUpdateBadgePutsTheUpdateRowRightUnderTheFirstRow) {
  const auto pane = openWithBadge("New update available!");
  EXPECT_TRUE(pane->updateAvailable());
  const auto row = pane->specifierAtIndex(1);
  EXPECT_EQ(row->name(), "Install the new update");
  EXPECT_EQ(row->cellType(), PSCellType::kLink);
  EXPECT_EQ(row->action(), "installUpdate");
  EXPECT_EQ(row->textForKey("backgroundColor"), "red");
  EXPECT_EQ(row->textForKey("textColor"), "white");
  EXPECT_EQ(row->classForKey("cellClass")->name, "TBPSColoredTableCell");
  EXPECT_TRUE(row->propertyForKey("iconImage"));
  EXPECT_EQ(pane->indexPathForIndex(1), (NSIndexPath{0, 1}));
  const auto cell = cellAt(*pane, 1);
  EXPECT_EQ(cell->backgroundColor(), UIColor::redColor());
  EXPECT_EQ(cell->textLabel()->textColor(), UIColor::whiteColor());
  EXPECT_EQ(cell->tintColor(), UIColor::whiteColor());
  EXPECT_EQ(cell->imageView()->image()->name(), "gear-white.png");
}

TEST_F(RootPaneTest, WithTheUpdateRowTheFirstRowsSeparatorRunsTheFullWidth) {
  const auto pane = openWithBadge("New update available!");
  const auto first = cellAt(*pane, 0);
  EXPECT_EQ(first->separatorInset(), UIEdgeInsets{});
  EXPECT_EQ(first->layoutMargins(), UIEdgeInsets{});
  EXPECT_EQ(first->preservesSuperviewLayoutMargins(), false);
  EXPECT_EQ(cellAt(*pane, 1)->separatorInset(), std::nullopt);
}

TEST_F(RootPaneTest, WithoutTheUpdateRowTheFirstRowKeepsThePlatformsInset) {
  const auto pane = open<QDPreferencesListController>();
  EXPECT_EQ(cellAt(*pane, 0)->separatorInset(), std::nullopt);
  EXPECT_EQ(cellAt(*pane, 0)->layoutMargins(), std::nullopt);
  EXPECT_EQ(cellAt(*pane, 0)->preservesSuperviewLayoutMargins(), std::nullopt);
}

TEST_F(RootPaneTest, AnyOtherBadgeMeansNoUpdateRow) {
  for (const auto& badge : {Value(""), Value("2"), Value("New update available"), Value(1)}) {
    const auto pane = openWithBadge(badge);
    EXPECT_FALSE(pane->updateAvailable());
    EXPECT_EQ(pane->specifierForID("Install the new update"), nullptr);
  }
}

TEST_F(RootPaneTest, AnEntryWithoutABadgeAndNoEntryAtAllMeanNoUpdateRow) {
  const auto entry = bareRow("QuietDial", PSCellType::kLink, "QDPreferencesListController");
  for (const auto& pane :
       {open<QDPreferencesListController>(entry), open<QDPreferencesListController>()}) {
    EXPECT_FALSE(pane->updateAvailable());
    EXPECT_EQ(pane->specifierAtIndex(0)->name(), "Hide Caller ID Prefix");
    EXPECT_EQ(pane->specifierForID("Install the new update"), nullptr);
  }
}

TEST_F(RootPaneTest, TheUpdateRowComesBetweenTheListsFirstTwoRowsAndTheRestFollowsInOrder) {
  const auto plain = open<QDPreferencesListController>();
  const auto updated = openWithBadge("New update available!");
  ASSERT_EQ(updated->specifiers().size(), plain->specifiers().size() + 1);
  EXPECT_EQ(updated->specifierAtIndex(0)->name(), plain->specifierAtIndex(0)->name());
  for (int index = 1; plain->specifierAtIndex(index); ++index) {
    EXPECT_EQ(updated->specifierAtIndex(index + 1)->name(), plain->specifierAtIndex(index)->name());
  }
}

TEST_F(RootPaneTest, ADynamicRowIsAsHighAsItsCellWantsAtTheTablesWidth) {
  const auto pane = open<QDPreferencesListController>();
  EXPECT_EQ(cellAt(*pane, 8)->frame().size.height, 160);
  width = 414;
  layOut();
  EXPECT_EQ(cellAt(*pane, 8)->frame().size.height, 207);
  EXPECT_EQ(cellAt(*pane, 0)->frame().size.height, metrics::kRowHeight);
}

TEST_F(RootPaneTest, ARowWithoutAKeyReadsAsItsDefaultAndWritesNothing) {
  const auto pane = open<QDPreferencesListController>();
  const auto row = pane->specifierForID("Keyless");
  take();
  EXPECT_EQ(row->value(), Value("its own"));
  row->setValue("another");
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(RootPaneTest, TheUpdateRowOpensThePackageManagersPage) {
  const auto pane = openWithBadge("New update available!");
  pane->selectSpecifier(pane->specifierAtIndex(1));
  EXPECT_THAT(take(), ElementsAre(OpenEvent{"cydia://package/me.orlanvey.quietdial"}));
}

TEST_F(RootPaneTest, AMissingListStillShowsTheUpdateRow) {
  files->dictionaries.clear();
  const auto pane = openWithBadge("New update available!");
  EXPECT_EQ(pane->specifierAtIndex(0)->name(), "Install the new update");
}

TEST_F(RootPaneTest, AnAbsentKeyReadsAsTheRowsDefaultAndStaysAbsent) {
  const auto pane = open<QDPreferencesListController>();
  EXPECT_EQ(pane->specifierForID("Number")->value(), Value(1));
  EXPECT_EQ(stored("dialerMode"), std::nullopt);
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(RootPaneTest, AStoredValueComesBeforeTheDefault) {
  store("dialerMode", 0);
  EXPECT_EQ(open<QDPreferencesListController>()->specifierForID("Number")->value(), Value(0));
}

TEST_F(RootPaneTest, WritingTheStoredValueAgainWritesAndNotifies) {
  const auto pane = open<QDPreferencesListController>();
  pane->specifierForID("Number")->setValue(1);
  take();
  pane->specifierForID("Number")->setValue(1);
  EXPECT_THAT(take(), ElementsAre(WriteEvent{kSettings, {{"dialerMode", 1}}, true},
                                  PostEvent{NotificationCall::kCFNotificationCenter,
                                            "me.orlanvey.quietDial/PreferencesChanged"}));
}

TEST_F(RootPaneTest, ComingBackFromThePrefixPaneShowsTheNewPrefix) {
  const auto pane = open<QDPreferencesListController>();
  EXPECT_EQ(cellAt(*pane, 0)->detailTextLabel()->text(), "#31#");
  pane->selectSpecifier(pane->specifierAtIndex(0));
  layOut();
  const auto prefix = cast<QDCountryPrefixController>(inner->topViewController());
  ASSERT_TRUE(prefix);
  prefix->selectSpecifier(prefix->specifierForID("Canada"));
  inner->popViewControllerAnimated(true);
  layOut();
  EXPECT_EQ(cellAt(*pane, 0)->detailTextLabel()->text(), "*67");
}

TEST_F(RootPaneTest, TheSummaryRowsGetNewCellsEachTimeThePaneAppears) {
  const auto pane = open<QDPreferencesListController>();
  std::map<std::string, std::shared_ptr<UITableViewCell>> before;
  const auto& rows = pane->specifiers();
  for (std::size_t index = 0; index < rows.size(); ++index) {
    before[rows[index]->name()] = cellAt(*pane, static_cast<int>(index));
  }
  pane->viewWillAppear(false);
  layOut();
  std::vector<std::string> renewed;
  for (std::size_t index = 0; index < rows.size(); ++index) {
    if (cellAt(*pane, static_cast<int>(index)) != before[rows[index]->name()]) {
      renewed.push_back(rows[index]->name());
    }
  }
  EXPECT_THAT(renewed, ElementsAre("Hide Caller ID Prefix", "Dial Tab Style",
                                   "Systemwide Call Style", "Button Style"));
}

// Records what it is asked to reload by identifier.
class ReloadedPane : public Subclass<ReloadedPane, QDPreferencesListController> {
 public:
  static const ClassOf<ReloadedPane> classObject;

  void reloadSpecifierIDAnimated(std::string_view identifier, bool animated) override {
    QDPreferencesListController::reloadSpecifierIDAnimated(identifier, animated);
    reloads.emplace_back(identifier, animated);
  }
  std::vector<std::pair<std::string, bool>> reloads;
};

constexpr ClassOf<ReloadedPane> ReloadedPane::classObject{"ReloadedPane"};

TEST_F(RootPaneTest, TheSummaryRowsAreReloadedInTheirOrderAndNotAnimatedEachTimeThePaneAppears) {
  const auto pane = open<ReloadedPane>();
  const std::vector<std::pair<std::string, bool>> expected{{"Hide Caller ID Prefix", false},
                                                           {"Dial Tab Style", false},
                                                           {"Systemwide Call Style", false},
                                                           {"Button Style", false}};
  EXPECT_EQ(std::exchange(pane->reloads, {}), expected);
  open<QDCountryPrefixController>();
  EXPECT_THAT(pane->reloads, IsEmpty());
  inner->popViewControllerAnimated(false);
  EXPECT_EQ(pane->reloads, expected);
}

TEST_F(RootPaneTest, TheTitleIsTheLogoAsATemplate) {
  const auto pane = open<QDPreferencesListController>();
  const auto view = cast<UIImageView>(pane->UIViewController::navigationItem()->titleView());
  ASSERT_TRUE(view);
  EXPECT_EQ(view->image()->name(), "tallowbyteLogoNavBar.png");
  EXPECT_EQ(view->image()->renderingMode(), UIImageRenderingMode::kAlwaysTemplate);
  EXPECT_EQ(view->frame(), CGRectMake(0, 0, 20, 10));
}

TEST_F(RootPaneTest, TheHeartOpensAShareSheetWithTheTextAndNoImages) {
  const auto pane = open<QDPreferencesListController>();
  const auto heart = pane->UIViewController::navigationItem()->rightBarButtonItem();
  EXPECT_EQ(heart->image()->name(), "heart.png");
  EXPECT_EQ(heart->style(), UIBarButtonItemStyle::kPlain);
  EXPECT_TRUE(heart->isEnabled());
  EXPECT_EQ(heart->accessibilityLabel(), "Share");
  heart->press();
  EXPECT_THAT(take(), ElementsAre(PresentComposeEvent{"SLServiceTypeTwitter",
                                                      "I'm loving #QuietDial from @Tallowbyte!", 0,
                                                      Presenter::kPane}));
}

TEST_F(RootPaneTest, MissingPicturesLeaveTheTitleAndTheHeartWithoutOne) {
  pictures->sizes.clear();
  const auto pane = openWithBadge("New update available!");
  EXPECT_EQ(cast<UIImageView>(pane->UIViewController::navigationItem()->titleView())->image(),
            nullptr);
  EXPECT_EQ(pane->UIViewController::navigationItem()->rightBarButtonItem()->image(), nullptr);
  EXPECT_EQ(pane->specifierAtIndex(1)->propertyForKey("iconImage"), std::nullopt);
}

TEST_F(RootPaneTest, TheLastLoadedPaneIsPublishedWeakly) {
  EXPECT_EQ(preferencesListController, nullptr);
  auto pane = open<QDPreferencesListController>();
  EXPECT_EQ(preferencesListController->lock(), pane);
  EXPECT_EQ(navigationItem->lock(), pane->UIViewController::navigationItem());
  inner->popViewControllerAnimated(false);
  pane.reset();
  EXPECT_TRUE(preferencesListController->expired());
  EXPECT_TRUE(navigationItem->expired());

  // What outside code has once looked up stays the place to look at.
  auto* const place = preferencesListController;
  auto* const itemPlace = navigationItem;
  pane = open<QDPreferencesListController>();
  EXPECT_EQ(preferencesListController, place);
  EXPECT_EQ(navigationItem, itemPlace);
  EXPECT_EQ(place->lock(), pane);
}

TEST_F(RootPaneTest, ARowWhosePaneIsNotThereOpensAPageThatNamesTheClass) {
  const auto pane = open<QDPreferencesListController>();
  pane->selectSpecifier(pane->specifierForID("Elsewhere"));
  const auto page = cast<PSListController>(inner->topViewController());
  ASSERT_NE(page, pane);
  const auto text = page->specifiers().front()->textForKey("footerText");
  EXPECT_THAT(text.value_or(""), testing::HasSubstr("QDNowhereController"));
}

TEST_F(RootPaneTest, TheRestartRowAppliesTheSettings) {
  const auto pane = open<QDPreferencesListController>();
  pane->selectSpecifier(pane->specifierForID("Apply"));
  EXPECT_THAT(takePosts(), ElementsAre("me.orlanvey.quietdial/prefsChanged"));
}

TEST_F(RootPaneTest, RowsAreBuiltOnceAndNotByLoadingTheViewOrLookingOneUp) {
  auto pane = allocInit<QDPreferencesListController>();
  pane->view();
  EXPECT_EQ(pane->specifierForID("Number"), nullptr);
  const auto& rows = pane->specifiers();
  const auto first = rows.front();
  EXPECT_EQ(pane->specifiers().front(), first);
}

}  // namespace
