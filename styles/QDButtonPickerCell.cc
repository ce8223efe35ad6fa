#include "styles/QDButtonPickerCell.h"

#include <algorithm>
#include <utility>

#include "core/preferenceStore.h"
#include "platform/foundation/method.h"
#include "styles/resourceFolder.h"

namespace {

constexpr std::string_view kAction = "buttonPressed:";
constexpr auto kMethods =
    methods<QDButtonPickerCell>(method<&QDButtonPickerCell::buttonPressed>(kAction));

constexpr std::string_view kDialKey = "dialButtonStyle";
constexpr std::string_view kSystemwideKey = "systemwideButtonStyle";
constexpr std::string_view kSummaryKey = "buttonStyleText";

constexpr UIColor kChosenTint{0, 0.478, 1, 1};
constexpr float kButtonSize = 72;
constexpr float kMargin = 10;

std::string summaryPart(const std::optional<PropertyListValue>& style) {
  return std::to_string(style ? style->intValue().value_or(0) : 0);
}

}  // namespace

constexpr ClassOf<QDButtonPickerCell> QDButtonPickerCell::classObject{"QDButtonPickerCell",
                                                                      kMethods};

bool QDButtonPickerCell::initWithStyleReuseIdentifierSpecifier(
    UITableViewCellStyle style, std::string reuseIdentifier,
    const std::shared_ptr<PSSpecifier>& specifier) {
  if (!PSTableCell::initWithStyleReuseIdentifierSpecifier(style, std::move(reuseIdentifier),
                                                          specifier)) {
    return false;
  }
  _key = specifier ? specifier->textForKey("key").value_or("") : "";
  makeButtons();
  buttonPressed(storedChoice());
  return true;
}

bool QDButtonPickerCell::initWithSpecifier(const std::shared_ptr<PSSpecifier>& specifier) {
  return initWithStyleReuseIdentifierSpecifier(UITableViewCellStyle::kDefault,
                                               "QDDialerTabStyleCell", specifier);
}

void QDButtonPickerCell::makeButtons() {
  int number = 0;
  for (auto* field : {&_image1, &_image2, &_image3, &_image4}) {
    const auto text = std::to_string(++number);
    auto button = allocInit<UIButton>();
    std::string picture(kResourceFolder);
    picture.append("GrayButton").append(text).append(".png");
    const auto image = UIImage::imageNamed(picture);
    button->setImage(image ? image->imageWithRenderingMode(UIImageRenderingMode::kAlwaysTemplate)
                           : nullptr);
    button->setAccessibilityLabel("Button " + text);
    button->setTintColor(UIColor::lightGrayColor());
    button->addTargetActionForControlEvents(shared_from_this(), kAction,
                                            UIControlEvent::kTouchUpInside);
    contentView()->addSubview(button);
    *field = std::move(button);
  }
}

std::shared_ptr<UIButton> QDButtonPickerCell::storedChoice() {
  const auto stored = readPreferenceValue(_key);
  if (!stored) {
    setPreferenceValueForKey(1, _key);
    return _image1;
  }
  const auto all = buttons();
  const auto number = integerOrZero(stored);
  return number >= 1 && std::cmp_less_equal(number, all.size()) ? all[number - 1] : nullptr;
}

void QDButtonPickerCell::buttonPressed(const std::shared_ptr<UIButton>& sender) {
  const auto all = buttons();
  for (const auto& button : all) {
    button->setTintColor(UIColor::lightGrayColor());
    button->setAccessibilitySelected(button == sender);
  }
  if (sender) {
    sender->setTintColor(kChosenTint);
  }
  const auto* const found = std::ranges::find(all, sender);
  const auto chosen = found == all.end() ? 1 : found - all.begin() + 1;
  setPreferenceValueForKey(chosen, _key);
  const std::string summary = "Style " + summaryPart(readPreferenceValue(kDialKey)) + " & " +
                              summaryPart(readPreferenceValue(kSystemwideKey));
  setPreferenceValueForKey(summary, kSummaryKey);
}

std::optional<PropertyListValue> QDButtonPickerCell::readPreferenceValue(std::string_view key) {
  return readPreference(key);
}

void QDButtonPickerCell::setPreferenceValueForKey(const PropertyListValue& value,
                                                  std::string_view key) {
  if (readPreferenceValue(key) != value) {
    writePreference(key, value);
  }
}

void QDButtonPickerCell::layoutSubviews() {
  PSTableCell::layoutSubviews();
  setUserInteractionEnabled(true);
  // The phone keeps these measures in single precision.
  const auto width = static_cast<float>(contentView()->bounds().size.width);
  const float gap = (width - 4 * kButtonSize) / 5;
  float before = 0;  // how many stand to the left
  for (const auto& button : buttons()) {
    const float x = (before + 1) * gap + before * kButtonSize;
    button->setFrame(CGRectMake(x, kMargin, kButtonSize, kButtonSize));
    ++before;
  }
}

CGFloat QDButtonPickerCell::preferredHeightForWidth(CGFloat /*width*/) {
  return kButtonSize + 2 * kMargin;
}
