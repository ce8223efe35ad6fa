#include "extras/QDSoftwareCreditsController.h"

#include "tests/support/PaneTest.h"

extern "C" const ClassTable quietDialPreferencesClasses;

namespace {

using testing::ElementsAre;

TEST_F(PaneTest, TheSoftwareCreditsAreExactlyTheRowsOfTheirResourceInTheirOrder) {
  NSBundle::load(kBundle, quietDialPreferencesClasses);
  files->dictionaries[bundleFile("QDSoftwareCreditsPreferences.plist")] = {
      {"title", "Software"},
      {"items",
       PropertyListArray{
           PropertyListDictionary{{"cell", "PSGroupCell"}, {"label", "g"}},
           PropertyListDictionary{{"label", "z"},
                                  {"detailText", "one\ntwo\nthree"},
                                  {"cellClass", "TBPSSubtitleTableCell"},
                                  {"dynamicHeight", true}},
           PropertyListDictionary{{"label", "a"}, {"dynamicHeight", false}, {"height", 60}},
       }}};
  const auto pane = open<QDSoftwareCreditsController>();
  std::vector<std::string> names;
  for (const auto& row : pane->specifiers()) {
    names.push_back(row->name());
    EXPECT_EQ(row->target(), row->cellType() == PSCellType::kGroup ? nullptr : pane);
  }
  EXPECT_THAT(names, ElementsAre("g", "z", "a"));
  EXPECT_EQ(pane->specifierForID("z")->properties().size(), 3U) << "nothing is added to a row";
  EXPECT_EQ(pane->title(), "Software");
  EXPECT_GT(cellAt(*pane, 1)->frame().size.height, 60);
  EXPECT_EQ(cellAt(*pane, 2)->frame().size.height, 60);
  const auto kept = pane->specifiers();
  files->dictionaries.clear();
  EXPECT_EQ(pane->specifiers(), kept);
}

}  // namespace
