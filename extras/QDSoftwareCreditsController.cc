#include "extras/QDSoftwareCreditsController.h"

#include "core/rowHeight.h"

constexpr ClassOf<QDSoftwareCreditsController> QDSoftwareCreditsController::classObject{
    "QDSoftwareCreditsController"};

const PSSpecifiers& QDSoftwareCreditsController::specifiers() {
  if (!hasSpecifiers()) {
    setSpecifiers(
        loadSpecifiersFromPlistNameTarget("QDSoftwareCreditsPreferences", shared_from_this()));
  }
  return keptSpecifiers();
}

CGFloat QDSoftwareCreditsController::tableViewHeightForRowAtIndexPath(UITableView& table,
                                                                      NSIndexPath indexPath) {
  return heightForRow(*this, table, indexPath);
}
