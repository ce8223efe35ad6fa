#pragma once

#include <memory>

#include "platform/api.h"
#include "platform/uikit/UIImage.h"
#include "platform/uikit/UIView.h"

/// Shows one picture, scaled to the view. Main thread.
class PLATFORM_API UIImageView : public UIView {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }

  /// The view takes the image's size; a null image leaves it empty.
  bool initWithImage(const std::shared_ptr<UIImage>& image);

  virtual std::shared_ptr<UIImage> image() const { return image_; }
  virtual void setImage(const std::shared_ptr<UIImage>& image);

 private:
  std::shared_ptr<UIImage> image_;
};
