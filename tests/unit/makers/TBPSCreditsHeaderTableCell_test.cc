#include "platform/makers/TBPSCreditsHeaderTableCell.h"

#include <algorithm>

#include "platform/uikit/metrics.h"
#include "tests/support/PaneTest.h"

namespace {

class CreditsHeaderTest : public PaneTest {
 protected:
  CreditsHeaderTest() {
    pictures->sizes["/logo.png"] = {200, 56};
    pictures->sizes["/one.png"] = {80, 80};
    pictures->sizes["/two.png"] = {80, 80};
  }

  std::shared_ptr<TBPSCreditsHeaderTableCell> cellOf(CGFloat cellWidth) {
    const auto row = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        "Maker", nullptr, "", "", "", PSCellType::kDefault, "");
    for (const auto& [key, value] : {std::pair("logo", "/logo.png"),
                                     {"head1", "/one.png"},
                                     {"head2", "/two.png"},
                                     {"head1Name", "A"},
                                     {"head2Name", "B"}}) {
      row->setPropertyForKey(PropertyListValue(value), key);
    }
    auto cell = alloc<TBPSCreditsHeaderTableCell>();
    cell->initWithStyleReuseIdentifierSpecifier(UITableViewCellStyle::kDefault, "", row);
    cell->setFrame(CGRectMake(0, 0, cellWidth, cell->preferredHeightForWidth(cellWidth)));
    cell->layoutIfNeeded();
    return cell;
  }

  // The pictures that the cell shows, by name.
  static std::map<std::string, CGRect> shown(const PSTableCell& cell) {
    std::map<std::string, CGRect> frames;
    for (const auto& view : cell.contentView()->subviews()) {
      const auto picture = cast<UIImageView>(view);
      if (picture && picture->image()) {
        frames[picture->image()->name()] = picture->frame();
      }
    }
    return frames;
  }

  static std::vector<std::string> names(const PSTableCell& cell) {
    std::vector<std::string> texts;
    for (const auto& view : cell.contentView()->subviews()) {
      const auto label = cast<UILabel>(view);
      if (label && !label->isHidden() && !label->text().empty()) {
        texts.push_back(label->text());
      }
    }
    return texts;
  }
};

TEST_F(CreditsHeaderTest, TheLogoStandsInTheMiddleAboveTheTwoHeads) {
  const auto cell = cellOf(320);
  const auto frames = shown(*cell);
  const CGRect logo = frames.at("logo.png");
  EXPECT_EQ(logo.origin.x, 60);
  EXPECT_EQ(logo.size, (CGSize{200, 56}));
  const CGRect one = frames.at("one.png");
  const CGRect two = frames.at("two.png");
  EXPECT_EQ(one.origin.y, two.origin.y);
  EXPECT_GT(one.origin.y, logo.origin.y + logo.size.height);
  EXPECT_LT(one.origin.x + one.size.width, two.origin.x);
  EXPECT_DOUBLE_EQ(one.origin.x, 320 - two.origin.x - two.size.width) << "symmetrical";
  EXPECT_LE(one.origin.y + one.size.height, cell->frame().size.height);
  EXPECT_THAT(names(*cell), testing::ElementsAre("A", "B"));
}

TEST_F(CreditsHeaderTest, ALogoWiderThanTheRowIsScaledDown) {
  pictures->sizes["/logo.png"] = {800, 100};
  const CGRect logo = shown(*cellOf(320)).at("logo.png");
  EXPECT_EQ(logo.size, (CGSize{280, 35}));
}

TEST_F(CreditsHeaderTest, AMissingHeadLeavesTheOtherInTheMiddleAndItsOwnNameOut) {
  pictures->sizes.erase("/one.png");
  const auto cell = cellOf(320);
  EXPECT_EQ(shown(*cell).at("two.png").origin.x, 120);
  EXPECT_THAT(names(*cell), testing::ElementsAre("B"));
}

TEST_F(CreditsHeaderTest, AsMuchIsFreeBelowAsAboveAlsoWithoutALogoOrHeads) {
  const auto all = pictures->sizes;
  for (const auto& missing :
       std::vector<std::vector<std::string>>{{}, {"/logo.png"}, {"/one.png", "/two.png"}}) {
    pictures->sizes = all;
    for (const auto& path : missing) {
      pictures->sizes.erase(path);
    }
    const auto cell = cellOf(320);
    CGFloat top = cell->frame().size.height;
    CGFloat bottom = 0;
    for (const auto& view : cell->contentView()->subviews()) {
      const CGRect frame = view->frame();
      if (view != cell->textLabel() && frame.size.height > 0) {
        top = std::min(top, frame.origin.y);
        bottom = std::max(bottom, frame.origin.y + frame.size.height);
      }
    }
    EXPECT_EQ(cell->frame().size.height - bottom, top) << missing.size();
  }
}

TEST_F(CreditsHeaderTest, WithoutPicturesTheRowIsAnOrdinaryOne) {
  pictures->sizes.clear();
  const auto cell = cellOf(320);
  EXPECT_EQ(cell->frame().size.height, metrics::kRowHeight);
  EXPECT_TRUE(shown(*cell).empty());
  EXPECT_TRUE(names(*cell).empty());
}

TEST_F(CreditsHeaderTest, EverythingStaysWithinANarrowRow) {
  for (const auto& [name, frame] : shown(*cellOf(200))) {
    EXPECT_GE(frame.origin.x, 0) << name;
    EXPECT_LE(frame.origin.x + frame.size.width, 200) << name;
  }
}

}  // namespace
