#pragma once

#include <memory>
#include <string>

#include "platform/foundation/Subclass.h"
#include "styles/ModeStyleCell.h"

/// How the system-wide call screen offers the anonymous call: the choice and its preview. Main
/// thread.
class QDSystemwideStyleCell : public Subclass<QDSystemwideStyleCell, ModeStyleCell> {
 public:
  static const ClassOf<QDSystemwideStyleCell> classObject;

  bool initWithSpecifier(const std::shared_ptr<PSSpecifier>& specifier);

  /// Each update is logged, too.
  void updateImageForIndex() override;

  void layoutSubviews() override;
  CGFloat preferredHeightForWidth(CGFloat width) override;

 protected:
  const Plan& plan() const override;
};
