#pragma once

#include "platform/api.h"
#include "platform/uikit/UIView.h"

/// A part of something larger. Main thread.
class PLATFORM_API UIScrollView : public UIView {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }

  /// The size, in points, of the whole of which the view shows a part.
  CGSize contentSize() const { return contentSize_; }
  void setContentSize(CGSize size);
  bool isScrollEnabled() const { return scrollEnabled_; }
  void setScrollEnabled(bool enabled);

 private:
  CGSize contentSize_;
  bool scrollEnabled_ = true;
};
