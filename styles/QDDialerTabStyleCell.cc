#include "styles/QDDialerTabStyleCell.h"

#include "platform/foundation/method.h"

namespace {

constexpr auto kMethods = methods<QDDialerTabStyleCell>(
    method<&QDDialerTabStyleCell::updateImageForIndex>("updateImageForIndex"));

constexpr const char* kSwipeInfo =
    "Swipe to the left or to the right side of the green button to show the Call Anonymously "
    "button.\n\nThe selection above will be automatically be set as your theme.";
constexpr const char* kHoldInfo =
    "Tap and hold the green button to show the Call Anonymously button.\n\nThe selection above "
    "will be automatically be set as your theme.";
constexpr const char* kAlwaysInfo =
    "Both buttons will always be shown.\n\n\nThe selection above will be automatically be set as "
    "your theme.";

constexpr double kWidthToHeight = 1.381;
constexpr float kPreviewMargin = 15;
constexpr float kPreviewTop = 65;
constexpr float kInfoBelowPreviewHeight = 76;
constexpr float kInfoHeight = 90;
constexpr float kHeightBelowInfoTop = 100;

float previewHeight(double width) {
  return static_cast<float>((width - 2 * kPreviewMargin) / kWidthToHeight);
}

}  // namespace

constexpr ClassOf<QDDialerTabStyleCell> QDDialerTabStyleCell::classObject{"QDDialerTabStyleCell",
                                                                          kMethods};

bool QDDialerTabStyleCell::initWithSpecifier(const std::shared_ptr<PSSpecifier>& specifier) {
  return initWithStyleReuseIdentifierSpecifier(UITableViewCellStyle::kDefault,
                                               "QDDialerTabStyleCell", specifier);
}

const ModeStyleCell::Plan& QDDialerTabStyleCell::plan() const {
  static constexpr Plan kPlan{
      .name = "Dial tab style",
      .modeKey = "dialerMode",
      .titleKey = "dialerModeText",
      .defaultMode = 0,
      .previewName = "Style",
      .previewDescriptions = {"Animation: a finger swipes sideways from the green button, and the "
                              "Call Anonymously button slides out beside it.",
                              "Animation: a finger rests on the green button until the Call "
                              "Anonymously button comes out beside it.",
                              "Animation: both buttons stand side by side, and a finger taps the "
                              "Call Anonymously button."},
  };
  return kPlan;
}

void QDDialerTabStyleCell::makeInfoLabel() {
  auto label = allocInit<UILabel>();
  label->setFont(UIFont::systemFontOfSize(14));
  label->setTextAlignment(NSTextAlignment::kCenter);
  label->setTextColor(UIColor::grayColor());
  label->setNumberOfLines(0);
  contentView()->addSubview(label);
  setInfoLabel(std::move(label));
}

void QDDialerTabStyleCell::showInfo(int mode) {
  infoLabel()->setText(mode == 0 ? kSwipeInfo : mode == 1 ? kHoldInfo : kAlwaysInfo);
}

void QDDialerTabStyleCell::layoutSubviews() {
  PSTableCell::layoutSubviews();
  setUserInteractionEnabled(true);
  const float width = contentWidth();
  const float height = previewHeight(width);
  segmentedControl()->setFrame(CGRectMake(20, 20, width - 40, 35));
  seperator()->setFrame(CGRectMake(0, 64, width, 1));
  animatedImageView()->setFrame(
      CGRectMake(kPreviewMargin, kPreviewTop, width - 2 * kPreviewMargin, height));
  infoLabel()->setFrame(CGRectMake(20, height + kInfoBelowPreviewHeight, width - 40, kInfoHeight));
}

CGFloat QDDialerTabStyleCell::preferredHeightForWidth(CGFloat width) {
  return previewHeight(width) + kInfoBelowPreviewHeight + kHeightBelowInfoTop;
}
