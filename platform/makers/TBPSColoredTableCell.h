#pragma once

#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSTableCell.h"

/// A row in the colours that it names: `backgroundColor` and `textColor`, names as UIColor knows
/// them; a name that is not known leaves the usual colour. Main thread.
class PLATFORM_API TBPSColoredTableCell : public Subclass<TBPSColoredTableCell, PSTableCell> {
 public:
  static const ClassOf<TBPSColoredTableCell> classObject;

  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle style, std::string reuseIdentifier,
      const std::shared_ptr<PSSpecifier>& specifier) override;
};
