#pragma once

#include <string>
#include <utility>
#include <vector>

#include "headless/drainAllQueues.h"
#include "styles/ModeStyleCell.h"
#include "tests/support/GIFBuilder.h"
#include "tests/support/PaneTest.h"

/// A test over the panes with a preview. Each preview is `first width + number` pixels wide, so
/// that its width tells which one it is.
class StylePaneTest : public PaneTest {
 protected:
  static constexpr const char* kChanged = "me.orlanvey.quietDial/PreferencesChanged";
  static constexpr int kStyleRow = 1;

  /// Stores three previews of `frames` frames of 0.1 s under that name.
  void storePreviews(const std::string& name, unsigned firstWidth, unsigned height = 4,
                     unsigned frames = 2) {
    const std::vector<std::uint8_t> colours{0, 0, 0, 255, 255, 255};
    for (unsigned number = 0; number < 3; ++number) {
      const unsigned width = firstWidth + number;
      GIFBuilder gif(width, height, colours);
      for (unsigned frame = 0; frame < frames; ++frame) {
        const std::vector<std::uint8_t> indexes(std::size_t{width} * height, frame % 2);
        gif.control({.delay = 10}).image({.width = width, .height = height}, 2, indexes);
      }
      gif.trailer();
      const auto file = gif.data();
      const auto bytes = std::as_bytes(std::span(*file));
      files->data[path(name, number)] = PropertyListData(bytes.begin(), bytes.end());
    }
  }

  static std::string path(const std::string& name, unsigned number) {
    std::string path(kBundle);
    return path.append("/").append(name).append("-").append(std::to_string(number)).append(".gif");
  }

  static std::shared_ptr<ModeStyleCell> styleCell(PSListController& pane) {
    return cast<ModeStyleCell>(cellAt(pane, kStyleRow));
  }

  void choose(PSListController& pane, int segment) {
    styleCell(pane)->segmentedControl()->chooseSegment(segment);
    layOut();
  }

  /// Width of the preview in pixels; 0 for an empty one.
  static double previewWidth(const ModeStyleCell& cell) {
    EXPECT_EQ(cell.animatedImageView()->animatedImage(), cell.animatedImage());
    return cell.animatedImage() ? cell.animatedImage()->size().width : 0;
  }

  /// The preview views in the cell; there is to be one, and it is the cell's.
  static std::vector<std::shared_ptr<FLAnimatedImageView>> previewViews(const ModeStyleCell& cell) {
    std::vector<std::shared_ptr<FLAnimatedImageView>> views;
    for (const auto& view : cell.contentView()->subviews()) {
      if (auto preview = cast<FLAnimatedImageView>(view)) {
        views.push_back(std::move(preview));
      }
    }
    return views;
  }

  /// Refreshes the display until the preview has stopped.
  void playToItsEnd(const FLAnimatedImageView& preview) {
    for (int refreshes = 0; preview.isAnimating() && refreshes < 1000; ++refreshes) {
      drainAllQueues();
      displayRefresh->refresh(1.0 / 60);
    }
    ASSERT_EQ(preview.currentFrameIndex(), preview.frameCount());
    ASSERT_FALSE(displayRefresh->isWanted());
  }

  /// A frame whose four numbers have to be of single precision.
  static std::vector<float> single(CGRect frame) {
    std::vector<float> numbers;
    for (const CGFloat number :
         {frame.origin.x, frame.origin.y, frame.size.width, frame.size.height}) {
      EXPECT_EQ(number, static_cast<float>(number));
      numbers.push_back(static_cast<float>(number));
    }
    return numbers;
  }

  /// Values that no segment stands for.
  static std::vector<PropertyListValue> valuesWithoutSegment() {
    return {3,
            -1,
            std::int64_t{1} << 40,
            (std::int64_t{1} << 32) + 1,
            INT64_MIN,
            UINT64_MAX,
            3.0,
            1e300,
            -1e300,
            "3",
            PropertyListArray{1},
            PropertyListDictionary{{"a", 1}},
            PropertyListData{std::byte{1}},
            PropertyListDate{1}};
  }
};
