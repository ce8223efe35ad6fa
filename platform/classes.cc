#include "platform/classes.h"

#include <array>

#include "platform/makers/TBPSColoredTableCell.h"
#include "platform/makers/TBPSCreditsHeaderTableCell.h"
#include "platform/makers/TBPSEmptyHeaderView.h"
#include "platform/makers/TBPSSpinnerTableCell.h"
#include "platform/makers/TBPSSubtitleTableCell.h"
#include "platform/makers/TBPSWebViewTableCell.h"
#include "platform/preferences/PSEditableTableCell.h"
#include "platform/preferences/PSListController.h"
#include "platform/preferences/PSTableCell.h"

const ClassTable& platformClasses() {
  static constexpr std::array<const ClassDescription*, 9> kClasses{
      &PSListController::classObject,     &PSTableCell::classObject,
      &PSEditableTableCell::classObject,  &TBPSColoredTableCell::classObject,
      &TBPSEmptyHeaderView::classObject,  &TBPSCreditsHeaderTableCell::classObject,
      &TBPSSpinnerTableCell::classObject, &TBPSSubtitleTableCell::classObject,
      &TBPSWebViewTableCell::classObject,
  };
  static constexpr ClassTable kTable{kClasses};
  return kTable;
}
