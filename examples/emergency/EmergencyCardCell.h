#pragma once

#include <memory>
#include <string>

#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSTableCell.h"

/// The card: the row's value in white on red; where it has none, the row's title as ever. Main
/// thread.
class EmergencyCardCell : public Subclass<EmergencyCardCell, PSTableCell> {
 public:
  static const ClassOf<EmergencyCardCell> classObject;

  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle style, std::string reuseIdentifier,
      const std::shared_ptr<PSSpecifier>& specifier) override;
};
