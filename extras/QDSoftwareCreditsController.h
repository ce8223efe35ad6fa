#pragma once

#include "platform/preferences/PSListController.h"

/// The software that QuietDial is built with, as its list resource has it. Main thread.
class QDSoftwareCreditsController : public PSListController {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }

  const PSSpecifiers& specifiers() override;
  CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
};
