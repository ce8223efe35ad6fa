#include "core/rowHeight.h"

#include "platform/preferences/PSTableCell.h"

CGFloat heightForRow(PSListController& pane, UITableView& table, NSIndexPath indexPath) {
  const auto row = pane.specifierAtIndex(pane.indexForIndexPath(indexPath).value_or(-1));
  const auto dynamic = row ? row->plistForKey("dynamicHeight") : std::nullopt;
  if (dynamic && dynamic->boolValue()) {
    const auto cell = cast<PSTableCell>(pane.tableViewCellForRowAtIndexPath(table, indexPath));
    if (cell) {
      return cell->preferredHeightForWidth(table.wrapperView()->frame().size.width);
    }
  }
  return pane.PSListController::tableViewHeightForRowAtIndexPath(table, indexPath);
}
