#pragma once

#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSTableCell.h"
#include "platform/uikit/UIActivityIndicatorView.h"

/// A row that says that something is under way: a turning wheel in its middle. Main thread.
class PLATFORM_API TBPSSpinnerTableCell : public Subclass<TBPSSpinnerTableCell, PSTableCell> {
 public:
  static const ClassOf<TBPSSpinnerTableCell> classObject;

  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle style, std::string reuseIdentifier,
      const std::shared_ptr<PSSpecifier>& specifier) override;
  void layoutSubviews() override;

 private:
  std::shared_ptr<UIActivityIndicatorView> spinner_;
};
