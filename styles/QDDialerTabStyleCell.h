#pragma once

#include <memory>
#include <string>

#include "platform/foundation/Subclass.h"
#include "styles/ModeStyleCell.h"

/// How the Call Anonymously button is revealed in the dialler's tab: the choice, its preview and
/// its explanation. Main thread.
class QDDialerTabStyleCell : public Subclass<QDDialerTabStyleCell, ModeStyleCell> {
 public:
  static const ClassOf<QDDialerTabStyleCell> classObject;

  bool initWithSpecifier(const std::shared_ptr<PSSpecifier>& specifier);

  void layoutSubviews() override;
  CGFloat preferredHeightForWidth(CGFloat width) override;

 protected:
  const Plan& plan() const override;
  void makeInfoLabel() override;
  void showInfo(int mode) override;
};
