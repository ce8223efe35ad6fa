#include "extras/QDCreditsListController.h"

#include "tests/support/PaneTest.h"

extern "C" const ClassTable quietDialPreferencesClasses;

namespace {

using testing::ElementsAre;

constexpr const char* kProfile = "twitter://user?screen_name=Tallowbyte";

PropertyListDictionary button(const char* label, const char* action) {
  return {{"cell", "PSButtonCell"}, {"label", label}, {"action", action}};
}

class CreditsPaneTest : public PaneTest {
 protected:
  CreditsPaneTest() {
    NSBundle::load(kBundle, quietDialPreferencesClasses);
    const PropertyListDictionary group{{"cell", "PSGroupCell"}};
    items = {group,
             PropertyListDictionary{{"cell", "PSDefaultCell"},
                                    {"label", "Tallowbyte"},
                                    {"id", "QDTallowbyte"},
                                    {"cellClass", "TBPSCreditsHeaderTableCell"},
                                    {"dynamicHeight", true}},
             group,
             button("Follow", "followOnTwitter"),
             button("Donate", "donate"),
             button("Visit", "visitTallowbyte")};
  }

  std::shared_ptr<QDCreditsListController> openCredits() {
    files->dictionaries[bundleFile("quietDialCreditsPreferences.plist")] = {{"title", "Credits"},
                                                                            {"items", items}};
    auto pane = open<QDCreditsListController>();
    take();
    return pane;
  }

  PropertyListArray items;
};

TEST_F(CreditsPaneTest, WithTheTwitterApplicationFollowingOpensTheProfileThereAndNothingElse) {
  addresses->addScheme("twitter");
  const auto pane = openCredits();
  pane->selectSpecifier(pane->specifierForID("Follow"));
  EXPECT_THAT(take(), ElementsAre(CanOpenEvent{kProfile, true}, OpenEvent{kProfile}));
}

TEST_F(CreditsPaneTest, WithoutTheTwitterApplicationFollowingOpensTheWebFormAlone) {
  const auto pane = openCredits();
  pane->selectSpecifier(pane->specifierForID("Follow"));
  EXPECT_THAT(take(),
              ElementsAre(CanOpenEvent{kProfile, false},
                          OpenEvent{"https://twitter.example/intent/user?screen_name=Tallowbyte"}));
}

TEST_F(CreditsPaneTest, DonatingOpensThePaymentServicesFormWithTheButton) {
  const auto pane = openCredits();
  pane->selectSpecifier(pane->specifierForID("Donate"));
  EXPECT_THAT(take(),
              ElementsAre(OpenEvent{"https://www.paypal.example/cgi-bin/webscr?cmd=_s-xclick&"
                                    "hosted_button_id=QUIETDIALEXAMPLE"}));
}

TEST_F(CreditsPaneTest, VisitingTheMakerOpensThePlainWebsite) {
  const auto pane = openCredits();
  pane->selectSpecifier(pane->specifierForID("Visit"));
  EXPECT_THAT(take(), ElementsAre(OpenEvent{"http://www.tallowbyte.example"}));
}

TEST_F(CreditsPaneTest, TheHeaderRowHasThePathsOfItsThreePictures) {
  const auto header = openCredits()->specifierForID("QDTallowbyte");
  const std::string folder = kBundle;
  EXPECT_EQ(header->textForKey("logo"), folder + "/tallowbyte-logo.png");
  EXPECT_EQ(header->textForKey("head1"), folder + "/avatar-orlan.png");
  EXPECT_EQ(header->textForKey("head2"), folder + "/avatar-tavish.png");
}

TEST_F(CreditsPaneTest, TheFirstRowOfEverySectionHasASeparatorOfTheFullWidth) {
  const auto pane = openCredits();
  for (const int index : {1, 3}) {
    const auto cell = cellAt(*pane, index);
    EXPECT_EQ(cell->separatorInset(), UIEdgeInsets{}) << index;
    EXPECT_EQ(cell->layoutMargins(), UIEdgeInsets{}) << index;
    EXPECT_EQ(cell->preservesSuperviewLayoutMargins(), false) << index;
  }
}

TEST_F(CreditsPaneTest, TheOtherRowsKeepTheirSeparators) {
  const auto pane = openCredits();
  for (const int index : {4, 5}) {
    const auto cell = cellAt(*pane, index);
    EXPECT_EQ(cell->separatorInset(), std::nullopt) << index;
    EXPECT_EQ(cell->layoutMargins(), std::nullopt) << index;
    EXPECT_EQ(cell->preservesSuperviewLayoutMargins(), std::nullopt) << index;
  }
}

TEST_F(CreditsPaneTest, WithoutTheHeaderRowTheOtherRowsAreShown) {
  items.erase(items.begin() + 1);
  const auto pane = openCredits();
  EXPECT_EQ(pane->specifiers().size(), 5U);
  for (const auto& row : pane->specifiers()) {
    EXPECT_EQ(row->textForKey("logo"), std::nullopt);
  }
}

TEST_F(CreditsPaneTest, TheHeaderIsAsHighAsItsPictures) {
  const auto plain = openCredits();
  EXPECT_EQ(cellAt(*plain, 1)->frame().size.height, 44);
  for (const auto* name : {"tallowbyte-logo", "avatar-orlan", "avatar-tavish"}) {
    pictures->sizes[bundleFile(std::string(name) + ".png")] = {80, 80};
  }
  EXPECT_GT(cellAt(*openCredits(), 1)->frame().size.height, 160);
}

TEST_F(CreditsPaneTest, RowsAreCompletedOnceAndKept) {
  const auto pane = openCredits();
  const auto first = pane->specifiers();
  first[1]->setPropertyForKey(PropertyListValue("/changed"), "logo");
  EXPECT_EQ(pane->specifiers(), first);
  EXPECT_EQ(first[1]->textForKey("logo"), "/changed");
}

}  // namespace
