#pragma once

#include <memory>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIControl.h"
#include "platform/uikit/UIImage.h"

/// A picture that can be pressed; template pictures take the button's tint. Main thread.
class PLATFORM_API UIButton : public Subclass<UIButton, UIControl> {
 public:
  static const ClassOf<UIButton> classObject;

  /// The picture of the normal state, the only one that buttons have here.
  const std::shared_ptr<UIImage>& image() const { return image_; }
  void setImage(const std::shared_ptr<UIImage>& image);

 private:
  std::shared_ptr<UIImage> image_;
};
