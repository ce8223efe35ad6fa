#include "settings/bundles/SettingsListController.h"

#include "platform/preferences/MissingPaneController.h"
#include "settings/bundles/BundleFailureController.h"
#include "settings/bundles/HeldBackController.h"
#include "tests/support/PaneTest.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// The bundles that are listed here have entries and no modules: what opens is a page that says so.
class SettingsListControllerTest : public PaneTest {
 protected:
  std::shared_ptr<SettingsListController> open(std::vector<BundleEntry> entries) {
    list = SettingsListController::withEntries(std::move(entries),
                                               std::make_shared<BundleLoader>(paths), record);
    inner->pushViewControllerAnimated(list, false);
    layOut();
    return list;
  }
  static BundleEntry entry(const std::string& name) {
    const std::string path = "/Library/PreferenceBundles/" + name + ".bundle";
    return {.bundlePath = path,
            .label = name,
            .iconPath = "",
            .modulePath = path + "/" + name,
            .detail = name + "Controller",
            .badge = {}};
  }
  // What a run leaves behind that ends while that page is being opened.
  void takeDownWith(const std::string& className) {
    writeBytes(folder / "Opening" / className, "");
  }
  template <class Page>
  std::shared_ptr<Page> topPage() {
    return cast<Page>(inner->topViewController());
  }
  static std::string footerOf(PSListController& page) {
    return page.specifiers().front()->textForKey("footerText").value_or("");
  }
  int depth() const { return static_cast<int>(inner->viewControllers().size()); }

  TemporaryFolder folder;
  std::shared_ptr<const DevicePaths> paths =
      std::make_shared<const DevicePaths>(folder / "root", folder / "Library");
  std::shared_ptr<OpeningRecord> record =
      std::make_shared<OpeningRecord>(QString::fromStdString(folder / "Opening"));
  std::shared_ptr<SettingsListController> list;
};

TEST_F(SettingsListControllerTest, EachBundleHasARowWithItsBadge) {
  auto second = entry("B");
  second.badge = "2";
  open({entry("A"), second});
  const auto& rows = list->specifiers();
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[1]->name(), "A");
  EXPECT_EQ(rows[1]->plistForKey("badgeString"), std::nullopt);
  EXPECT_EQ(rows[2]->name(), "B");
  EXPECT_EQ(rows[2]->textForKey("badgeString"), "2");
  EXPECT_EQ(rows[2]->detail(), "BController");
  EXPECT_EQ(list->title(), "Settings");
}

TEST_F(SettingsListControllerTest, WithoutBundlesThePageSaysSo) {
  open({});
  EXPECT_EQ(list->specifiers().size(), 1U);
  EXPECT_EQ(footerOf(*list), "No settings are installed.");
}

TEST_F(SettingsListControllerTest, ABundleThatCannotBeLoadedOpensAPageThatSaysSo) {
  open({entry("A"), entry("B")});
  list->table()->tapRow({0, 1});
  const auto page = topPage<BundleFailureController>();
  ASSERT_TRUE(page);
  EXPECT_THAT(footerOf(*page),
              HasSubstr("The bundle /Library/PreferenceBundles/B.bundle could not be loaded."));
  EXPECT_EQ(page->specifier(), list->specifiers()[2]);
}

TEST_F(SettingsListControllerTest, APageIsBeingOpenedFromTheTapOn) {
  open({entry("A")});
  EXPECT_FALSE(record->isOpening());
  list->table()->tapRow({0, 0});
  EXPECT_TRUE(record->isOpening());
  EXPECT_TRUE(std::filesystem::exists(folder / "Opening" / "AController"));
}

TEST_F(SettingsListControllerTest, APageThatTookTheProgramDownIsHeldBackAndOpenedWhenAskedFor) {
  takeDownWith("AController");
  open({entry("A")});
  list->openPane("AController");
  const auto page = topPage<HeldBackController>();
  ASSERT_TRUE(page);
  EXPECT_THAT(footerOf(*page), HasSubstr("the last time this page (AController)"));
  EXPECT_FALSE(record->isOpening());
  EXPECT_EQ(page->specifiers()[1]->name(), "Open Anyway");
  page->specifiers()[1]->performAction();
  EXPECT_TRUE(topPage<BundleFailureController>());
  EXPECT_TRUE(record->isOpening());
  EXPECT_EQ(depth(), 2);  // in its place, and not on top of it
  record->succeed();
  EXPECT_FALSE(record->tookProgramDown("AController"));
}

TEST_F(SettingsListControllerTest, AskedForTwiceItIsOpenedOnce) {
  takeDownWith("AController");
  open({entry("A")});
  list->openPane("AController");
  const auto page = topPage<HeldBackController>();
  ASSERT_TRUE(page);
  page->openAnyway();
  page->openAnyway();
  EXPECT_EQ(depth(), 2);
}

TEST_F(SettingsListControllerTest, ATapOpensAPageThatTookTheProgramDownAllTheSame) {
  takeDownWith("AController");
  open({entry("A")});
  list->table()->tapRow({0, 0});
  EXPECT_TRUE(topPage<BundleFailureController>());
}

TEST_F(SettingsListControllerTest, OtherPagesOpenAsEver) {
  takeDownWith("AController");
  open({entry("A"), entry("B")});
  list->openPane("BController");
  EXPECT_TRUE(topPage<BundleFailureController>());
  EXPECT_EQ(topPage<PSListController>()->specifier(), list->specifiers()[2]);
}

TEST_F(SettingsListControllerTest, APaneThatNoBundleKnowsIsLookedForInAllButThoseThatTookItDown) {
  takeDownWith("AController");
  open({entry("A"), entry("B")});
  list->openPane("PSListController");
  // A class of the frameworks is known once any bundle was asked; none of these can be loaded.
  EXPECT_TRUE(topPage<HeldBackController>());
  EXPECT_TRUE(std::filesystem::exists(folder / "Opening" / "BController"));
}

TEST_F(SettingsListControllerTest, APaneThatNobodyKnowsIsAPageThatSaysSo) {
  open({entry("A")});
  list->openPane("NoSuchController");
  EXPECT_TRUE(topPage<MissingPaneController>());
}

}  // namespace
