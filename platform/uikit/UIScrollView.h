#pragma once

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIView.h"

/// A part of something larger. Main thread.
class PLATFORM_API UIScrollView : public Subclass<UIScrollView, UIView> {
 public:
  static const ClassOf<UIScrollView> classObject;

  /// The size, in points, of the whole of which the view shows a part.
  CGSize contentSize() const { return contentSize_; }
  void setContentSize(CGSize size);
  bool isScrollEnabled() const { return scrollEnabled_; }
  void setScrollEnabled(bool enabled);

 private:
  CGSize contentSize_;
  bool scrollEnabled_ = true;
};
