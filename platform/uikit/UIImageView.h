#pragma once

#include <memory>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIImage.h"
#include "platform/uikit/UIView.h"

/// Shows one picture, scaled to the view. Main thread.
class PLATFORM_API UIImageView : public Subclass<UIImageView, UIView> {
 public:
  static const ClassOf<UIImageView> classObject;

  /// The view takes the image's size; a null image leaves it empty.
  bool initWithImage(const std::shared_ptr<UIImage>& image);

  virtual std::shared_ptr<UIImage> image() const { return image_; }
  virtual void setImage(const std::shared_ptr<UIImage>& image);

  bool isHighlighted() const { return highlighted_; }
  virtual void setHighlighted(bool highlighted);

  /// The image's size, where there is one.
  CGSize intrinsicContentSize() const override;

  // A plain image view has nothing to play; subclasses do.
  virtual void startAnimating();
  virtual void stopAnimating();
  virtual bool isAnimating() const;

  /// The pixels of the image become the layer's contents; an image from a file is drawn by the
  /// host.
  void displayLayer(CALayer& layer) override;

 private:
  std::shared_ptr<UIImage> image_;
  bool highlighted_ = false;
};
