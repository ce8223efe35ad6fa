#pragma once

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIView.h"

/// A group's header in which nothing is drawn. Main thread.
class PLATFORM_API TBPSEmptyHeaderView : public Subclass<TBPSEmptyHeaderView, UIView> {
 public:
  static const ClassOf<TBPSEmptyHeaderView> classObject;
};
