#pragma once

#include "platform/preferences/PSListController.h"

/// The pane in which one chooses how the Call Anonymously button is revealed in the dialler's tab.
/// Its only row stores the choice. Main thread.
class QDDialerStyleSelectionController : public PSListController {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }

  const PSSpecifiers& specifiers() override;
  CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
};
