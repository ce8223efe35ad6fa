#pragma once

#include "platform/api.h"
#include "platform/uikit/UIView.h"

/// A group header in which nothing is written; the list gives it the usual gap. Main thread.
class PLATFORM_API TBPSEmptyHeaderView : public UIView {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }
};
