#include "styles/QDSystemwideStyleSelectionController.h"

#include "core/preferenceStore.h"
#include "core/rowHeight.h"
#include "platform/foundation/method.h"
#include "platform/preferences/PSTextFieldSpecifier.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UITapGestureRecognizer.h"
#include "styles/QDSystemwideStyleCell.h"
#include "styles/styleRow.h"

namespace {

using Pane = QDSystemwideStyleSelectionController;

constexpr std::string_view kGetter = "readPreferenceValue:";
constexpr std::string_view kSetter = "setPreferenceValue:specifier:";
constexpr std::string_view kDismiss = "dismissKeyboard";

constexpr auto kMethods = methods<Pane>(method<&Pane::readPreferenceValue>(kGetter),
                                        method<&Pane::setPreferenceValueSpecifier>(kSetter),
                                        method<&Pane::dismissKeyboard>(kDismiss));

}  // namespace

constexpr ClassOf<QDSystemwideStyleSelectionController>
    QDSystemwideStyleSelectionController::classObject{"QDSystemwideStyleSelectionController",
                                                      kMethods};

const PSSpecifiers& QDSystemwideStyleSelectionController::specifiers() {
  if (hasSpecifiers()) {
    return keptSpecifiers();
  }
  endEditingOnTap();
  auto texts = PSSpecifier::groupSpecifierWithName("Custom Text");
  texts->setPropertyForKey(PropertyListValue(static_cast<int>(NSTextAlignment::kCenter)),
                           "alignment");
  setSpecifiers({
      makeStyleGroup(),
      makeStyleRow(shared_from_this(), QDSystemwideStyleCell::classObject),
      std::move(texts),
      makeField("Are you sure you want to call?", "customText"),
      makeField("How would you like to call?", "systemWideTwoButtonText"),
  });
  return keptSpecifiers();
}

void QDSystemwideStyleSelectionController::endEditingOnTap() {
  auto recognizer = alloc<UITapGestureRecognizer>();
  recognizer->initWithTargetAction(shared_from_this(), kDismiss);
  recognizer->setCancelsTouchesInView(false);
  view()->addGestureRecognizer(recognizer);
}

std::shared_ptr<PSSpecifier> QDSystemwideStyleSelectionController::makeField(
    const char* placeholder, const char* key) {
  auto field = PSTextFieldSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      "", shared_from_this(), kSetter, kGetter, "", PSCellType::kEditText, "");
  field->setPlaceholder(placeholder);
  field->setPropertyForKey(PropertyListValue(key), "key");
  return field;
}

CGFloat QDSystemwideStyleSelectionController::tableViewHeightForRowAtIndexPath(
    UITableView& table, NSIndexPath indexPath) {
  return heightForRow(*this, table, indexPath);
}

void QDSystemwideStyleSelectionController::dismissKeyboard() {
  view()->endEditing(true);
}

std::optional<PropertyListValue> QDSystemwideStyleSelectionController::readPreferenceValue(
    const PSSpecifier& specifier) {
  return readPreference(specifier.textForKey("key").value_or(""));
}

void QDSystemwideStyleSelectionController::setPreferenceValueSpecifier(
    const PropertyListValue& value, const PSSpecifier& specifier) {
  writePreference(specifier.textForKey("key").value_or(""), value);
}
