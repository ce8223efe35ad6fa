#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "animated/FLAnimatedImageView.h"
#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSTableCell.h"
#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UISegmentedControl.h"

/// What the cells of the dialler's tab and of the system-wide screen have in common: a segmented
/// control over a preview of the chosen mode, and two settings, the mode's number and its title.
/// Nothing is kept between updates: each one reads its preview from the file. Main thread.
class ModeStyleCell : public Subclass<ModeStyleCell, PSTableCell> {
 public:
  static const ClassOf<ModeStyleCell> classObject;

  /// Shows the stored mode; an absent one gets its default, which is written.
  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle style, std::string reuseIdentifier,
      const std::shared_ptr<PSSpecifier>& specifier) override;

  /// Action of the segmented control: stores the selected mode and its title and shows its preview
  /// from the start. While no segment is selected nothing is stored and the preview is empty.
  virtual void updateImageForIndex();

  /// The stored value, or nothing.
  std::optional<PropertyListValue> readPreferenceValue(std::string_view key);
  /// Stores the value unless it is stored already.
  void setPreferenceValueForKey(const PropertyListValue& value, std::string_view key);

  const std::shared_ptr<UISegmentedControl>& segmentedControl() const { return _segmentedControl; }
  /// A rule between the control and the preview.
  const std::shared_ptr<UIView>& seperator() const { return _seperator; }
  /// Null where there is no preview.
  const std::shared_ptr<FLAnimatedImage>& animatedImage() const { return _animatedImage; }
  /// Another one after each update.
  const std::shared_ptr<FLAnimatedImageView>& animatedImageView() const {
    return _animatedImageView;
  }
  /// Null where the mode is not explained in words.
  const std::shared_ptr<UILabel>& infoLabel() const { return _infoLabel; }

 protected:
  static constexpr std::size_t kModeCount = 3;

  /// In what the cells differ.
  struct Plan {
    /// What assistive technology calls the choice.
    const char* name;
    std::string_view modeKey;
    std::string_view titleKey;
    int defaultMode;
    /// The preview's file name without number and ending.
    std::string_view previewName;
    /// What each preview shows, in a sentence.
    std::array<const char*, kModeCount> previewDescriptions;
  };
  virtual const Plan& plan() const = 0;

  /// Called once, when everything but the preview is there.
  virtual void makeInfoLabel() {}
  /// Called on each update; kNoSegment while none is selected.
  virtual void showInfo(int /*mode*/) {}

  void setInfoLabel(std::shared_ptr<UILabel> label) { _infoLabel = std::move(label); }

  /// The content view's width, in the single precision in which the phone keeps these measures.
  float contentWidth() const;

 private:
  void selectStoredMode();
  void showPreview(int mode);

  std::shared_ptr<UISegmentedControl> _segmentedControl;
  std::shared_ptr<UIView> _seperator;
  std::shared_ptr<FLAnimatedImage> _animatedImage;
  std::shared_ptr<FLAnimatedImageView> _animatedImageView;
  std::shared_ptr<UILabel> _infoLabel;
  std::shared_ptr<UIImageView> _bigImageView;  // kept free for a large still picture
};
