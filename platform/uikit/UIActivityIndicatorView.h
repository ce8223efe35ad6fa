#pragma once

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIView.h"

/// A wheel that turns while something is under way, and is not to be seen otherwise. Main thread.
class PLATFORM_API UIActivityIndicatorView : public Subclass<UIActivityIndicatorView, UIView> {
 public:
  static const ClassOf<UIActivityIndicatorView> classObject;

  /// The view has one size, whatever the frame says.
  bool initWithFrame(CGRect frame) override;

  bool isAnimating() const { return animating_; }
  void startAnimating();
  void stopAnimating();

 private:
  void setAnimating(bool animating);

  bool animating_ = false;
};
