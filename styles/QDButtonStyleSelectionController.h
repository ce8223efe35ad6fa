#pragma once

#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSListController.h"

/// The pane in which the look of the Call Anonymously button is chosen, for the dialler's tab and
/// for the system-wide screen. Its cells store the choices. Main thread.
class QDButtonStyleSelectionController
    : public Subclass<QDButtonStyleSelectionController, PSListController> {
 public:
  static const ClassOf<QDButtonStyleSelectionController> classObject;

  const PSSpecifiers& specifiers() override;
  CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
};
