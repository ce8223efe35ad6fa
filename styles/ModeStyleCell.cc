#include "styles/ModeStyleCell.h"

#include <utility>

#include "core/preferenceStore.h"
#include "platform/uikit/UIAccessibility.h"
#include "styles/lastFrame.h"
#include "styles/resourceFolder.h"

namespace {

constexpr std::array<const char*, 3> kTitles{"Swipe", "Hold", "Show always"};

}  // namespace

constexpr ClassOf<ModeStyleCell> ModeStyleCell::classObject{"ModeStyleCell"};

bool ModeStyleCell::initWithStyleReuseIdentifierSpecifier(
    UITableViewCellStyle style, std::string reuseIdentifier,
    const std::shared_ptr<PSSpecifier>& specifier) {
  if (!PSTableCell::initWithStyleReuseIdentifierSpecifier(style, std::move(reuseIdentifier),
                                                          specifier)) {
    return false;
  }
  _animatedImageView.reset();
  _segmentedControl = alloc<UISegmentedControl>();
  _segmentedControl->initWithItems({kTitles.begin(), kTitles.end()});
  _segmentedControl->setAccessibilityLabel(plan().name);
  _segmentedControl->addTargetActionForControlEvents(shared_from_this(), "updateImageForIndex",
                                                     UIControlEvent::kValueChanged);
  contentView()->addSubview(_segmentedControl);
  _seperator = allocInit<UIView>();
  _seperator->setBackgroundColor(UIColor::lightGrayColor());
  contentView()->addSubview(_seperator);
  makeInfoLabel();
  selectStoredMode();
  updateImageForIndex();
  return true;
}

void ModeStyleCell::selectStoredMode() {
  const auto stored = readPreferenceValue(plan().modeKey);
  if (!stored) {
    setPreferenceValueForKey(plan().defaultMode, plan().modeKey);
    _segmentedControl->setSelectedSegmentIndex(plan().defaultMode);
    return;
  }
  _segmentedControl->setSelectedSegmentIndex(
      stored->integerValue().value_or(UISegmentedControl::kNoSegment));
}

void ModeStyleCell::updateImageForIndex() {
  const int mode = _segmentedControl->selectedSegmentIndex();
  // A stored mode that no segment stands for is left as it is.
  if (mode != UISegmentedControl::kNoSegment) {
    setPreferenceValueForKey(mode, plan().modeKey);
    setPreferenceValueForKey(kTitles.at(mode), plan().titleKey);
  }
  if (_animatedImageView) {
    _animatedImageView->removeFromSuperview();
  }
  showInfo(mode);
  showPreview(mode);
  setNeedsLayout();
}

void ModeStyleCell::showPreview(int mode) {
  const std::string path = std::string(kResourceFolder) + std::string(plan().previewName) + "-" +
                           std::to_string(mode) + ".gif";
  _animatedImage = FLAnimatedImage::animatedImageWithGIFData(NSData::dataWithContentsOfFile(path));
  _animatedImageView = allocInit<FLAnimatedImageView>();
  if (_animatedImage && UIAccessibilityIsReduceMotionEnabled()) {
    showLastFrame(_animatedImageView, _animatedImage);
  } else {
    _animatedImageView->setAnimatedImage(_animatedImage);
  }
  if (_animatedImage && mode != UISegmentedControl::kNoSegment) {
    _animatedImageView->setAccessibilityLabel(plan().previewDescriptions.at(mode));
  }
  contentView()->addSubview(_animatedImageView);
}

std::optional<PropertyListValue> ModeStyleCell::readPreferenceValue(std::string_view key) {
  return readPreference(key);
}

void ModeStyleCell::setPreferenceValueForKey(const PropertyListValue& value, std::string_view key) {
  if (readPreferenceValue(key) != value) {
    writePreference(key, value);
  }
}

float ModeStyleCell::contentWidth() const {
  return static_cast<float>(contentView()->bounds().size.width);
}
