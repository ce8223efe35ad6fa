#include "styles/QDDialerStyleSelectionController.h"

#include "core/rowHeight.h"
#include "styles/QDDialerTabStyleCell.h"
#include "styles/styleRow.h"

constexpr ClassOf<QDDialerStyleSelectionController> QDDialerStyleSelectionController::classObject{
    "QDDialerStyleSelectionController"};

const PSSpecifiers& QDDialerStyleSelectionController::specifiers() {
  if (!hasSpecifiers()) {
    setSpecifiers(
        {makeStyleGroup(), makeStyleRow(shared_from_this(), QDDialerTabStyleCell::classObject)});
  }
  return keptSpecifiers();
}

CGFloat QDDialerStyleSelectionController::tableViewHeightForRowAtIndexPath(UITableView& table,
                                                                           NSIndexPath indexPath) {
  return heightForRow(*this, table, indexPath);
}
