#include "platform/makers/TBPSEmptyHeaderView.h"

#include "platform/foundation/Subclass.h"
#include "platform/uikit/metrics.h"
#include "tests/support/PaneTest.h"

namespace {

class Pane : public Subclass<Pane, PSListController> {
 public:
  static const ClassOf<Pane> classObject;

  const PSSpecifiers& specifiers() override {
    if (!hasSpecifiers()) {
      auto group = PSSpecifier::groupSpecifierWithName("Not shown");
      group->setPropertyForKey(PropertyListValue("TBPSEmptyHeaderView"), "headerCellClass");
      setSpecifiers({group});
    }
    return keptSpecifiers();
  }
};

constexpr ClassOf<Pane> Pane::classObject{"Pane"};

TEST_F(PaneTest, AnEmptyHeaderIsAGapInWhichNothingIsWritten) {
  const auto pane = open<Pane>();
  const auto header = pane->table()->headerViewForSection(0);
  ASSERT_TRUE(cast<TBPSEmptyHeaderView>(header));
  EXPECT_TRUE(header->subviews().empty());
  EXPECT_EQ(header->frame().size.height, metrics::kGroupGap);
}

}  // namespace
