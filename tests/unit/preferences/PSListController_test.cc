#include "platform/preferences/PSListController.h"

#include <array>
#include <functional>
#include <utility>

#include "platform/foundation/Subclass.h"
#include "platform/foundation/method.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UITableViewHeaderFooterView.h"
#include "platform/uikit/metrics.h"
#include "tests/support/PaneTest.h"
#include "tests/support/bareRow.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::shared_ptr<PSSpecifier> row(const char* name) {
  return bareRow(name, PSCellType::kLink);
}

// a, then the group g with b and c, then the empty group h.
class Pane : public Subclass<Pane, PSListController> {
 public:
  static const ClassOf<Pane> classObject;

  using PSListController::setSpecifiers;
  const PSSpecifiers& specifiers() override {
    if (!hasSpecifiers()) {
      setSpecifiers({row("a"), PSSpecifier::groupSpecifierWithName("g"), row("b"), row("c"),
                     PSSpecifier::groupSpecifierWithName("h")});
    }
    return keptSpecifiers();
  }
  void viewDidLoad() override {
    PSListController::viewDidLoad();
    order.emplace_back(hasSpecifiers() ? "viewDidLoad with rows" : "viewDidLoad");
  }
  void viewWillAppear(bool animated) override {
    PSListController::viewWillAppear(animated);
    order.emplace_back(hasSpecifiers() ? "viewWillAppear with rows" : "viewWillAppear");
  }
  std::vector<std::string> order;
};

constexpr ClassOf<Pane> Pane::classObject{"Pane"};

// A pane whose set-up fails.
class UnmakeablePane : public Subclass<UnmakeablePane, PSListController> {
 public:
  static const ClassOf<UnmakeablePane> classObject;
  UnmakeablePane() { ++objects; }
  bool init() override { return false; }

  inline static int objects = 0;
};

constexpr ClassOf<UnmakeablePane> UnmakeablePane::classObject{"UnmakeablePane"};
constexpr std::array<const ClassDescription*, 1> kUnmakeable{&UnmakeablePane::classObject};

// A cell whose set-up fails.
class UnmakeableCell : public Subclass<UnmakeableCell, PSTableCell> {
 public:
  static const ClassOf<UnmakeableCell> classObject;
  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle /*style*/, std::string /*reuseIdentifier*/,
      const std::shared_ptr<PSSpecifier>& /*specifier*/) override {
    return false;
  }
};

constexpr ClassOf<UnmakeableCell> UnmakeableCell::classObject{"UnmakeableCell"};

// What the next cell or header that is set up does to its pane.
std::function<void()>& change() {
  static std::function<void()> next;
  return next;
}

void changeOnce() {
  if (const auto next = std::exchange(change(), nullptr)) {
    next();
  }
}

// A cell and a header that may change the rows while they are set up.
class ChangingCell : public Subclass<ChangingCell, PSTableCell> {
 public:
  static const ClassOf<ChangingCell> classObject;
  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle style, std::string reuseIdentifier,
      const std::shared_ptr<PSSpecifier>& specifier) override {
    changeOnce();
    return PSTableCell::initWithStyleReuseIdentifierSpecifier(style, std::move(reuseIdentifier),
                                                              specifier);
  }
};

constexpr ClassOf<ChangingCell> ChangingCell::classObject{"ChangingCell"};

class ChangingHeader : public Subclass<ChangingHeader, UIView> {
 public:
  static const ClassOf<ChangingHeader> classObject;
  bool init() override {
    changeOnce();
    return UIView::init();
  }
};

constexpr ClassOf<ChangingHeader> ChangingHeader::classObject{"ChangingHeader"};

class ListControllerTest : public PaneTest {
 protected:
  static std::vector<std::string> names(PSListController& pane) {
    std::vector<std::string> list;
    for (const auto& specifier : pane.specifiers()) {
      list.push_back(specifier->name());
    }
    return list;
  }
};

TEST_F(ListControllerTest, TheViewLoadsThenTheRowsAreBuiltThenThePaneAppears) {
  EXPECT_THAT(open<Pane>()->order, ElementsAre("viewDidLoad", "viewWillAppear with rows"));
}

TEST_F(ListControllerTest, RowsBeforeTheFirstGroupAreASectionWithoutATitle) {
  const auto pane = open<Pane>();
  EXPECT_EQ(pane->indexForIndexPath({0, 0}), 0);
  EXPECT_EQ(pane->indexForIndexPath({1, 0}), 2);
  EXPECT_EQ(pane->indexForIndexPath({1, 1}), 3);
  EXPECT_EQ(pane->indexForIndexPath({1, 2}), std::nullopt);
  EXPECT_EQ(pane->indexForIndexPath({3, 0}), std::nullopt);
  EXPECT_EQ(pane->indexForIndexPath({-1, 0}), std::nullopt);
  EXPECT_EQ(pane->indexPathForIndex(1), std::nullopt);
  EXPECT_EQ(pane->indexPathForIndex(3), (NSIndexPath{1, 1}));
  EXPECT_EQ(pane->sectionForIndex(0), 0);
  EXPECT_EQ(pane->sectionForIndex(1), 1);
  EXPECT_EQ(pane->sectionForIndex(4), 2);
  EXPECT_EQ(pane->sectionForIndex(5), std::nullopt);
}

TEST_F(ListControllerTest, ARowKeepsItsCellUntilItIsReloaded) {
  const auto pane = open<Pane>();
  const auto cell = cellAt(*pane, 2);
  EXPECT_EQ(pane->tableViewCellForRowAtIndexPath(*pane->table(), {1, 0}), cell);
  width = 414;
  layOut();
  EXPECT_EQ(cellAt(*pane, 2), cell);
  pane->reloadSpecifierIDAnimated("b", false);
  layOut();
  EXPECT_NE(cellAt(*pane, 2), cell);
}

TEST_F(ListControllerTest, RowsMayChangeWhileTheirCellsAndHeadersAreSetUp) {
  const auto changing = row("changing");
  changing->setPropertyForKey(&ChangingCell::classObject, "cellClass");
  const auto group = PSSpecifier::groupSpecifierWithName("group");
  group->setPropertyForKey(&ChangingHeader::classObject, "headerCellClass");
  const PSSpecifiers before{
      row("a"), PSSpecifier::groupSpecifierWithName("g"), changing, row("b"), group, row("c")};
  const auto pane = open<Pane>();
  for (const auto category : {UIContentSizeCategory::kLarge, UIContentSizeCategory::kExtraLarge}) {
    UIApplication::sharedApplication().setPreferredContentSizeCategory(category);
    for (const auto& after :
         {PSSpecifiers{}, PSSpecifiers{row("z")}, PSSpecifiers{changing, row("y"), row("z")}}) {
      for (const auto& trigger : {changing, group}) {
        pane->setSpecifiers({});
        layOut();
        pane->setSpecifiers(trigger == group ? PSSpecifiers{group, row("a")} : before);
        change() = [&] { pane->setSpecifiers(after); };
        layOut();
        EXPECT_FALSE(change());
        std::vector<std::string> expected;
        for (const auto& specifier : after) {
          expected.push_back(specifier->name());
        }
        std::vector<std::string> shown;
        for (const auto& view : pane->table()->wrapperView()->subviews()) {
          if (const auto cell = cast<UITableViewCell>(view)) {
            shown.push_back(cell->textLabel()->text());
          }
        }
        EXPECT_EQ(shown, expected);
      }
    }
  }
}

TEST_F(ListControllerTest, ACellWhoseSetUpTakesItsRowAwayIsNotKeptForAnother) {
  const auto pane = open<Pane>();
  const auto changing = row("changing");
  changing->setPropertyForKey(&ChangingCell::classObject, "cellClass");
  pane->setSpecifiers({changing});
  std::weak_ptr<UITableViewCell> made;
  change() = [&] { pane->setSpecifiers({}); };
  made = pane->tableViewCellForRowAtIndexPath(*pane->table(), {0, 0});
  EXPECT_TRUE(made.expired());
}

TEST_F(ListControllerTest, ASectionThatIsNotThereHasNoRowsAndBareEdges) {
  const auto pane = open<Pane>();
  auto& table = *pane->table();
  for (const int section : {-1, 3, 1000}) {
    EXPECT_EQ(pane->tableViewNumberOfRowsInSection(table, section), 0);
    EXPECT_TRUE(pane->tableViewViewForHeaderInSection(table, section));
    EXPECT_TRUE(pane->tableViewViewForFooterInSection(table, section));
    EXPECT_EQ(pane->tableViewCellForRowAtIndexPath(table, {section, 0}), nullptr);
  }
}

TEST_F(ListControllerTest, ReloadingWhatIsNotThereDoesNothing) {
  const auto pane = open<Pane>();
  const auto cell = cellAt(*pane, 2);
  pane->reloadSpecifierIDAnimated("z", false);
  pane->reloadSpecifier(nullptr);
  pane->reloadSpecifier(row("b"));
  layOut();
  EXPECT_EQ(cellAt(*pane, 2), cell);
}

TEST_F(ListControllerTest, ARunOfRowsIsReplacedAndTheOtherCellsStay) {
  const auto pane = open<Pane>();
  const auto kept = cellAt(*pane, 2);
  pane->replaceContiguousSpecifiersWithSpecifiersAnimated({pane->specifierForID("c")},
                                                          {row("d"), row("e")}, true);
  layOut();
  EXPECT_THAT(names(*pane), ElementsAre("a", "g", "b", "d", "e", "h"));
  EXPECT_EQ(cellAt(*pane, 2), kept);
  EXPECT_EQ(cellAt(*pane, 4)->textLabel()->text(), "e");
}

TEST_F(ListControllerTest, RowsThatAreNoRunAreNotReplaced) {
  const auto pane = open<Pane>();
  const auto a = pane->specifierForID("a");
  const auto c = pane->specifierForID("c");
  pane->replaceContiguousSpecifiersWithSpecifiersAnimated({a, c}, {row("d")}, true);
  pane->replaceContiguousSpecifiersWithSpecifiersAnimated({row("c")}, {row("d")}, true);
  pane->replaceContiguousSpecifiersWithSpecifiersAnimated({}, {row("d")}, true);
  EXPECT_THAT(names(*pane), ElementsAre("a", "g", "b", "c", "h"));
}

TEST_F(ListControllerTest, AGroupsTextsAreItsHeaderAndFooter) {
  const auto pane = open<Pane>();
  pane->specifierAtIndex(1)->setPropertyForKey(PropertyListValue("below"), "footerText");
  pane->specifierAtIndex(1)->setPropertyForKey(PropertyListValue(1), "alignment");
  pane->reloadSpecifier(pane->specifierAtIndex(1));
  layOut();
  const auto header = cast<UITableViewHeaderFooterView>(pane->table()->headerViewForSection(1));
  const auto footer = cast<UITableViewHeaderFooterView>(pane->table()->footerViewForSection(1));
  EXPECT_EQ(header->textLabel()->text(), "g");
  EXPECT_EQ(footer->textLabel()->text(), "below");
  EXPECT_EQ(footer->textLabel()->textAlignment(), NSTextAlignment::kCenter);
}

TEST_F(ListControllerTest, ALongFooterTakesMoreLinesInANarrowerTable) {
  const auto pane = open<Pane>();
  pane->specifierAtIndex(1)->setPropertyForKey(
      PropertyListValue("A text that says at some length what the rows above it are good for."),
      "footerText");
  pane->reloadSpecifier(pane->specifierAtIndex(1));
  layOut();
  const auto wide = pane->table()->footerViewForSection(1)->frame().size.height;
  width = 160;
  layOut();
  EXPECT_GT(pane->table()->footerViewForSection(1)->frame().size.height, wide);
}

TEST_F(ListControllerTest, AFixedHeightIsTheRowsHeight) {
  const auto pane = open<Pane>();
  pane->specifierForID("b")->setPropertyForKey(PropertyListValue(100), "height");
  pane->reloadSpecifierIDAnimated("b", false);
  layOut();
  EXPECT_EQ(cellAt(*pane, 2)->frame().size.height, 100);
}

TEST_F(ListControllerTest, AHeightThatIsNoneIsTheListsOwn) {
  const auto pane = open<Pane>();
  for (const auto& height : {PropertyListValue(0), PropertyListValue(-5), PropertyListValue("x")}) {
    pane->specifierForID("b")->setPropertyForKey(height, "height");
    pane->reloadSpecifierIDAnimated("b", false);
    layOut();
    EXPECT_EQ(cellAt(*pane, 2)->frame().size.height, metrics::kRowHeight);
  }
}

TEST_F(ListControllerTest, RowsAreMeasuredAgainEachTimeThePaneAppears) {
  const auto pane = open<Pane>();
  pane->specifierForID("b")->setPropertyForKey(PropertyListValue(100), "height");
  layOut();
  EXPECT_EQ(cellAt(*pane, 2)->frame().size.height, metrics::kRowHeight);
  pane->viewWillAppear(false);
  layOut();
  EXPECT_EQ(cellAt(*pane, 2)->frame().size.height, 100);
}

TEST_F(ListControllerTest, GroupsKeepTheirDistances) {
  const auto pane = open<Pane>();
  const auto header = [&](int section) {
    return pane->table()->headerViewForSection(section)->frame().size.height;
  };
  const auto footer = [&](int section) {
    return pane->table()->footerViewForSection(section)->frame().size.height;
  };
  constexpr CGFloat kHalf = metrics::kGroupGap / 2;
  EXPECT_EQ(header(0), metrics::kGroupGap);
  EXPECT_GT(header(1), kHalf + metrics::kHeaderTextGap);
  EXPECT_EQ(footer(0), kHalf);
  EXPECT_EQ(footer(1), kHalf);
  EXPECT_EQ(footer(2), 2 * kHalf) << "the list's end stands off its edge";
}

TEST_F(ListControllerTest, AGroupMayNameItsHeadersClass) {
  const auto pane = open<Pane>();
  const auto headerFor = [&](const PSPropertyValue& name) {
    pane->specifierAtIndex(1)->setPropertyForKey(name, "headerCellClass");
    pane->reloadSpecifier(pane->specifierAtIndex(1));
    layOut();
    return pane->table()->headerViewForSection(1);
  };
  const auto own = headerFor(&UIImageView::classObject);
  EXPECT_TRUE(cast<UIImageView>(own));
  EXPECT_EQ(own->frame().size.height, metrics::kGroupGap);
  for (const char* name : {"NoSuchClass", "PSListController"}) {
    EXPECT_TRUE(cast<UITableViewHeaderFooterView>(headerFor(PropertyListValue(name)))) << name;
  }
}

TEST_F(ListControllerTest, ATapInTheTableOpensTheRowsPaneWhichKnowsTheRow) {
  const auto pane = open<Pane>();
  const auto link = bareRow("Further on", PSCellType::kLink, "PSListController");
  pane->replaceContiguousSpecifiersWithSpecifiersAnimated({pane->specifierForID("b")}, {link},
                                                          false);
  layOut();
  pane->table()->tapRow({1, 0});
  const auto opened = cast<PSListController>(inner->topViewController());
  ASSERT_NE(opened, pane);
  EXPECT_EQ(opened->specifier(), link);
  EXPECT_EQ(opened->title(), "Further on");
}

TEST_F(ListControllerTest, APaneWithATitleOfItsOwnKeepsIt) {
  const auto pane = allocInit<Pane>();
  pane->setTitle("Its own");
  pane->setSpecifier(row("The row's"));
  EXPECT_EQ(pane->title(), "Its own");
}

TEST_F(ListControllerTest, AGroupOrATextFieldIsNeverChosen) {
  const auto pane = open<Pane>();
  for (const auto type : {PSCellType::kGroup, PSCellType::kEditText}) {
    pane->selectSpecifier(bareRow("x", type, "PSListController"));
    EXPECT_EQ(inner->topViewController(), pane);
  }
}

TEST_F(ListControllerTest, ARowThatLeftTheListComesBackWithANewCell) {
  const auto pane = open<Pane>();
  const auto c = pane->specifierForID("c");
  const auto former = cellAt(*pane, 3);
  const auto d = row("d");
  pane->replaceContiguousSpecifiersWithSpecifiersAnimated({c}, {d}, false);
  pane->replaceContiguousSpecifiersWithSpecifiersAnimated({d}, {c}, false);
  layOut();
  EXPECT_NE(cellAt(*pane, 3), former);
}

TEST_F(ListControllerTest, TheTableCanBeHadBeforeThePaneIsShown) {
  EXPECT_TRUE(allocInit<Pane>()->table());
}

TEST_F(ListControllerTest, ATableThatOutlivesItsPaneAsksNobody) {
  auto pane = open<Pane>();
  const auto table = pane->table();
  inner->popViewControllerAnimated(false);
  std::weak_ptr<Pane> gone = pane;
  pane.reset();
  ASSERT_TRUE(gone.expired());
  table->reloadData();
  table->layoutIfNeeded();
  table->tapRow({0, 0});
  EXPECT_TRUE(inner->viewControllers().empty());
}

TEST_F(ListControllerTest, AClassOfAnotherKindAsCellLeavesThePlatformsCell) {
  const auto pane = open<Pane>();
  pane->specifierForID("b")->setPropertyForKey(PropertyListValue("PSListController"), "cellClass");
  pane->specifierForID("c")->setPropertyForKey(PropertyListValue("NoSuchClass"), "cellClass");
  pane->reloadSpecifierIDAnimated("b", false);
  pane->reloadSpecifierIDAnimated("c", false);
  layOut();
  EXPECT_EQ(cellAt(*pane, 2)->textLabel()->text(), "b");
  EXPECT_EQ(cellAt(*pane, 3)->textLabel()->text(), "c");
}

TEST_F(ListControllerTest, ACellThatCannotBeSetUpLeavesThePlatformsCell) {
  const auto pane = open<Pane>();
  pane->specifierForID("b")->setPropertyForKey(&UnmakeableCell::classObject, "cellClass");
  pane->reloadSpecifierIDAnimated("b", false);
  layOut();
  EXPECT_FALSE(cast<UnmakeableCell>(cellAt(*pane, 2)));
  EXPECT_EQ(cellAt(*pane, 2)->textLabel()->text(), "b");
}

TEST_F(ListControllerTest, ARowWithNeitherPaneNorActionDoesNothing) {
  const auto pane = open<Pane>();
  pane->specifierForID("b")->setAction("nobodyAnswers");
  pane->selectSpecifier(pane->specifierForID("a"));
  pane->selectSpecifier(pane->specifierForID("b"));
  pane->selectSpecifier(pane->specifierAtIndex(1));
  EXPECT_EQ(inner->topViewController(), pane);
}

TEST_F(ListControllerTest, APaneKnowsBothNavigationControllersAroundIt) {
  const auto pane = open<Pane>();
  EXPECT_EQ(pane->navigationController(), inner);
  EXPECT_EQ(pane->navigationController()->navigationController(), outer);
  EXPECT_EQ(outer->navigationController(), nullptr);
}

// Notes which panes are about to be made, and whether their code has run by then.
class Watcher : public PaneObserver {
 public:
  Watcher() { setPaneObserver(this); }
  ~Watcher() override { setPaneObserver(nullptr); }
  Watcher(const Watcher&) = delete;
  Watcher& operator=(const Watcher&) = delete;
  Watcher(Watcher&&) = delete;
  Watcher& operator=(Watcher&&) = delete;

  void paneWillBeMade(const std::string& className) override {
    panes.push_back(className + (UnmakeablePane::objects == 0 ? "" : ", which has begun"));
  }

  std::vector<std::string> panes;
};

TEST_F(ListControllerTest, TheHostHearsOfAPaneBeforeAnythingOfItRuns) {
  registerClasses({kUnmakeable});
  Watcher watcher;
  makePane("UnmakeablePane", nullptr);
  EXPECT_EQ(UnmakeablePane::objects, 1);
  EXPECT_THAT(watcher.panes, ElementsAre("UnmakeablePane"));
}

TEST_F(ListControllerTest, TheHostHearsOfThePaneThatARowOpens) {
  const auto pane = open<Pane>();
  Watcher watcher;
  const auto link = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      "Link", pane, "", "", "PSListController", PSCellType::kLink, "");
  pane->selectSpecifier(link);
  EXPECT_THAT(watcher.panes, ElementsAre("PSListController"));
}

TEST_F(ListControllerTest, TheHostHearsNothingWhereNoPaneIsMade) {
  Watcher watcher;
  makePane("QDNothing", nullptr);
  makePane("PSTableCell", nullptr);
  EXPECT_THAT(watcher.panes, IsEmpty());
}

TEST_F(ListControllerTest, APaneThatCannotBeOpenedIsAPageThatSaysWhy) {
  registerClasses({kUnmakeable});
  const std::pair<const char*, const char*> pages[] = {
      {"QDNothing",
       "This page is made by the class “QDNothing”, which is not part of this version."},
      {"PSTableCell", "This row names the class “PSTableCell”, which is not a page."},
      {"UnmakeablePane", "The class “UnmakeablePane” could not set up this page."},
  };
  for (const auto& [name, explanation] : pages) {
    const auto list = cast<PSListController>(makePane(name, row("Its row")));
    ASSERT_TRUE(list) << name;
    EXPECT_EQ(list->title(), "Its row");
    ASSERT_EQ(list->specifiers().size(), 1U);
    const auto group = list->specifiers().front();
    EXPECT_EQ(group->name(), "Page not available");
    EXPECT_EQ(group->textForKey("footerText"), explanation);
    EXPECT_EQ(list->specifiers().front(), group);
  }
}

TEST_F(ListControllerTest, ABadgeIsDrawnUnlessItsTextIsEmpty) {
  const auto pane = open<Pane>();
  const auto plain = cellAt(*pane, 2)->contentView()->subviews().size();
  pane->specifierForID("b")->setPropertyForKey(PropertyListValue("2"), "badgeString");
  pane->specifierForID("c")->setPropertyForKey(PropertyListValue(""), "badgeString");
  pane->reloadSpecifierIDAnimated("b", false);
  pane->reloadSpecifierIDAnimated("c", false);
  layOut();
  EXPECT_EQ(cellAt(*pane, 2)->contentView()->subviews().size(), plain + 1);
  EXPECT_EQ(cellAt(*pane, 3)->contentView()->subviews().size(), plain);
}

// Says in `order` when it is asked for a height and when for a cell.
class WatchedPane : public Subclass<WatchedPane, Pane> {
 public:
  static const ClassOf<WatchedPane> classObject;

  CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override {
    order.emplace_back("height");
    return Pane::tableViewHeightForRowAtIndexPath(table, indexPath);
  }
  std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                  NSIndexPath indexPath) override {
    order.emplace_back("cell");
    return Pane::tableViewCellForRowAtIndexPath(table, indexPath);
  }
};

constexpr ClassOf<WatchedPane> WatchedPane::classObject{"WatchedPane"};

TEST_F(ListControllerTest, AtTheUsualTextSizeNoCellIsBuiltBeforeAllHeightsAreKnown) {
  const auto pane = open<WatchedPane>();
  EXPECT_THAT(pane->order, ElementsAre("viewDidLoad", "viewWillAppear with rows", "height",
                                       "height", "height", "cell", "cell", "cell"));
}

TEST_F(ListControllerTest, StandardRowsGrowWithLargerTextAndFixedHeightsStay) {
  UIApplication::sharedApplication().setPreferredContentSizeCategory(
      UIContentSizeCategory::kLargest);
  const auto pane = open<Pane>();
  pane->specifierForID("b")->setPropertyForKey(PropertyListValue(100), "height");
  pane->reloadSpecifierIDAnimated("b", false);
  layOut();
  EXPECT_GT(cellAt(*pane, 0)->frame().size.height, metrics::kRowHeight);
  EXPECT_EQ(cellAt(*pane, 2)->frame().size.height, 100);
  EXPECT_EQ(cellAt(*pane, 3)->frame().origin.y, cellAt(*pane, 2)->frame().origin.y + 100);
}

TEST_F(ListControllerTest, ARowWithAFieldGrowsWithTheTextTypedInIt) {
  const auto height = [this](UIContentSizeCategory category) {
    UIApplication::sharedApplication().setPreferredContentSizeCategory(category);
    const auto pane = open<Pane>();
    pane->setSpecifiers({PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        "", nullptr, "", "", "", PSCellType::kEditText, "")});
    layOut();
    return cellAt(*pane, 0)->frame().size.height;
  };
  EXPECT_EQ(height(UIContentSizeCategory::kLarge), metrics::kRowHeight);
  EXPECT_GT(height(UIContentSizeCategory::kLargest), metrics::kRowHeight);
}

TEST_F(ListControllerTest, ALargeBadgeThatFindsNoRoomStandsBelowTheTitle) {
  UIApplication::sharedApplication().setPreferredContentSizeCategory(
      UIContentSizeCategory::kAccessibilityMedium);
  width = 240;
  const auto pane = open<Pane>();
  pane->specifierForID("b")->setPropertyForKey(PropertyListValue("New update available!"),
                                               "badgeString");
  pane->reloadSpecifierIDAnimated("b", false);
  layOut();
  const auto cell = cellAt(*pane, 2);
  const auto& badge = *cell->contentView()->subviews().back();
  const CGRect title = cell->textLabel()->frame();
  EXPECT_GE(badge.frame().origin.y, title.origin.y + title.size.height);
  EXPECT_EQ(badge.frame().origin.x, title.origin.x);
  EXPECT_LE(badge.frame().origin.y + badge.frame().size.height, cell->frame().size.height);
}

TEST_F(ListControllerTest, ALongHeaderHasTheRoomOfItsCapitals) {
  const auto pane = open<Pane>();
  const auto heightOf = [&](const char* name) {
    pane->setSpecifiers({PSSpecifier::groupSpecifierWithName(name), row("b")});
    layOut();
    return pane->table()->headerViewForSection(0)->frame().size.height;
  };
  // In small letters the first would take one line less.
  EXPECT_EQ(heightOf("the prefixes that hide the number by country"),
            heightOf("THE PREFIXES THAT HIDE THE NUMBER BY COUNTRY"));
  EXPECT_GT(heightOf("the prefixes that hide the number by country"), heightOf("the prefixes"));
}

}  // namespace
