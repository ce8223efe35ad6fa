#pragma once

#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSListController.h"

/// The pane in which one chooses how the Call Anonymously button is revealed in the dialler's tab.
/// Its only row stores the choice. Main thread.
class QDDialerStyleSelectionController
    : public Subclass<QDDialerStyleSelectionController, PSListController> {
 public:
  static const ClassOf<QDDialerStyleSelectionController> classObject;

  const PSSpecifiers& specifiers() override;
  CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
};
