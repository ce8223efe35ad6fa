#pragma once

#include <memory>
#include <string>

#include "styles/ModeStyleCell.h"

/// How the system-wide call screen offers the anonymous call: the choice and its preview. Main
/// thread.
class QDSystemwideStyleCell : public ModeStyleCell {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }

  bool initWithSpecifier(const std::shared_ptr<PSSpecifier>& specifier);

  /// Each update is logged, too.
  void updateImageForIndex() override;

  void layoutSubviews() override;
  CGFloat preferredHeightForWidth(CGFloat width) override;

 protected:
  const Plan& plan() const override;
};
