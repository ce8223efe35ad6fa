#include "styles/styleRow.h"

#include "platform/preferences/PSTableCell.h"

std::shared_ptr<PSSpecifier> makeStyleRow(const std::shared_ptr<NSObject>& pane,
                                          const ClassDescription& cellClass) {
  auto row = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      "", pane, "", "", "", PSTableCell::cellTypeFromString("PSDefaultCell"), "");
  row->setPropertyForKey(&cellClass, "cellClass");
  row->setPropertyForKey(PropertyListValue(true), "dynamicHeight");
  return row;
}

std::shared_ptr<PSSpecifier> makeStyleGroup() {
  auto group = PSSpecifier::groupSpecifierWithName("");
  group->setPropertyForKey(PropertyListValue("TBPSEmptyHeaderView"), "headerCellClass");
  return group;
}
