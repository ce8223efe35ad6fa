#pragma once

#include "platform/preferences/PSListController.h"

/// The height of a pane's row in points: rows with `dynamicHeight` are asked of their cell, at the
/// width of the table's content; every other row has the list's own height. Main thread.
CGFloat heightForRow(PSListController& pane, UITableView& table, NSIndexPath indexPath);
