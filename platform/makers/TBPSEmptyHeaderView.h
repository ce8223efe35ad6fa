#pragma once

#include "platform/api.h"
#include "platform/uikit/UIView.h"

/// A group's header in which nothing is drawn. Main thread.
class PLATFORM_API TBPSEmptyHeaderView : public UIView {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }
};
