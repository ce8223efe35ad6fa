#include "headless/drainAllQueues.h"
#include "styles/QDDialerStyleSelectionController.h"
#include "tests/support/AllocationMeter.h"
#include "tests/unit/styles/StylePaneTest.h"

namespace {

constexpr unsigned kSide = 150;
constexpr unsigned kFrames = 30;
// What the frames of one preview take, all of them kept.
constexpr std::size_t kOneAnimation = std::size_t{kSide + 2} * kSide * 4 * kFrames;

class ModeStyleCellMemoryTest : public StylePaneTest {
 protected:
  ModeStyleCellMemoryTest() { storePreviews("Style", kSide, kSide, kFrames); }

  void switchSegments(PSListController& pane, int count) {
    for (int change = 1; change <= count; ++change) {
      choose(pane, change % 3);
      displayRefresh->refresh(1.0 / 60);
      settle();
      if (change % 10 == 0) {
        // Now and then a preview gets as far as having all its frames.
        drainAllQueues();
        take();
        displayRefresh->refresh(1.0 / 60);
      }
    }
  }
};

TEST_F(ModeStyleCellMemoryTest, Switching500TimesTakesNoMoreThanOnePreviewMore) {
  const auto pane = open<QDDialerStyleSelectionController>();
  switchSegments(*pane, 10);
  allocationmeter::reset();
  switchSegments(*pane, 500);
  // The next preview is made before the last one goes.
  EXPECT_LT(allocationmeter::peak(), 2 * kOneAnimation + 2'000'000);
  EXPECT_EQ(previewViews(*styleCell(*pane)).size(), 1U);
}

}  // namespace
