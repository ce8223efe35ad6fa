#include "styles/QDButtonStyleSelectionController.h"

#include <string>
#include <utility>

#include "core/rowHeight.h"
#include "platform/uikit/UILabel.h"
#include "styles/QDButtonPickerCell.h"
#include "styles/styleRow.h"

constexpr ClassOf<QDButtonStyleSelectionController> QDButtonStyleSelectionController::classObject{
    "QDButtonStyleSelectionController"};

namespace {

std::shared_ptr<PSSpecifier> makeGroup(const char* title, const char* footer) {
  auto group = PSSpecifier::groupSpecifierWithName(title);
  group->setPropertyForKey(PropertyListValue(static_cast<int>(NSTextAlignment::kCenter)),
                           "alignment");
  group->setPropertyForKey(PropertyListValue(footer), "footerText");
  return group;
}

std::shared_ptr<PSSpecifier> makePicker(const std::shared_ptr<NSObject>& pane, const char* key) {
  auto row = makeStyleRow(pane, QDButtonPickerCell::classObject);
  row->setPropertyForKey(PropertyListValue(key), "key");
  return row;
}

}  // namespace

const PSSpecifiers& QDButtonStyleSelectionController::specifiers() {
  if (hasSpecifiers()) {
    return keptSpecifiers();
  }
  const auto self = shared_from_this();
  setSpecifiers({
      makeGroup("Dial Button Style",
                "Here you can select a style for the Call Anonymously button. It will automaticly "
                "be used in the Phone Application."),
      makePicker(self, "dialButtonStyle"),
      makeGroup("Systemwide BUtton Style",
                "Here you can select a style for the Call Anonymously button. It will automaticly "
                "be used in the systemwide screen."),
      makePicker(self, "systemwideButtonStyle"),
  });
  return keptSpecifiers();
}

CGFloat QDButtonStyleSelectionController::tableViewHeightForRowAtIndexPath(UITableView& table,
                                                                           NSIndexPath indexPath) {
  return heightForRow(*this, table, indexPath);
}
