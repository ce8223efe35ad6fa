#include "styles/QDSystemwideStyleCell.h"

#include "platform/foundation/NSLog.h"
#include "platform/foundation/method.h"

namespace {

constexpr auto kMethods = methods<QDSystemwideStyleCell>(
    method<&QDSystemwideStyleCell::updateImageForIndex>("updateImageForIndex"));

constexpr double kWidthToHeight = 0.549;
constexpr float kPreviewMargin = 40;
constexpr float kPreviewTop = 65;
constexpr float kHeightBesidePreview = 76;

float previewHeight(double width) {
  return static_cast<float>((width - 2 * kPreviewMargin) / kWidthToHeight);
}

}  // namespace

constexpr ClassOf<QDSystemwideStyleCell> QDSystemwideStyleCell::classObject{"QDSystemwideStyleCell",
                                                                            kMethods};

bool QDSystemwideStyleCell::initWithSpecifier(const std::shared_ptr<PSSpecifier>& specifier) {
  return initWithStyleReuseIdentifierSpecifier(UITableViewCellStyle::kDefault,
                                               "QDSystemwideStyleCell", specifier);
}

const ModeStyleCell::Plan& QDSystemwideStyleCell::plan() const {
  static constexpr Plan kPlan{
      .name = "Systemwide call style",
      .modeKey = "systemwideStyle",
      .titleKey = "systemwideStyleText",
      .defaultMode = 2,
      .previewName = "SystemWideStyle",
      .previewDescriptions =
          {"Animation: on the call screen a finger swipes sideways from the Call button, and the "
           "Call Anonymously button slides out beside it.",
           "Animation: on the call screen a finger rests on the Call button until the Call "
           "Anonymously button comes out beside it.",
           "Animation: the call screen shows both buttons, and a finger taps the Call Anonymously "
           "button."},
  };
  return kPlan;
}

void QDSystemwideStyleCell::updateImageForIndex() {
  NSLog("test!");
  ModeStyleCell::updateImageForIndex();
}

void QDSystemwideStyleCell::layoutSubviews() {
  PSTableCell::layoutSubviews();
  setUserInteractionEnabled(true);
  const float width = contentWidth();
  segmentedControl()->setFrame(CGRectMake(20, 15, width - 40, 35));
  seperator()->setFrame(CGRectMake(0, 64, width, 1));
  animatedImageView()->setFrame(
      CGRectMake(kPreviewMargin, kPreviewTop, width - 2 * kPreviewMargin, previewHeight(width)));
}

CGFloat QDSystemwideStyleCell::preferredHeightForWidth(CGFloat width) {
  return previewHeight(width) + kHeightBesidePreview;
}
