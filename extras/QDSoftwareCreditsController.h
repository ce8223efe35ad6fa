#pragma once

#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSListController.h"

/// The software that QuietDial is built with, as its list resource has it. Main thread.
class QDSoftwareCreditsController : public Subclass<QDSoftwareCreditsController, PSListController> {
 public:
  static const ClassOf<QDSoftwareCreditsController> classObject;

  const PSSpecifiers& specifiers() override;
  CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
};
