#include "platform/uikit/UIImageView.h"

constexpr ClassOf<UIImageView> UIImageView::classObject{"UIImageView"};

bool UIImageView::initWithImage(const std::shared_ptr<UIImage>& image) {
  if (!initWithFrame({{}, image ? image->size() : CGSizeZero})) {
    return false;
  }
  image_ = image;
  layer().setNeedsDisplay();
  return true;
}

void UIImageView::setImage(const std::shared_ptr<UIImage>& image) {
  image_ = image;
  layer().setNeedsDisplay();
}

void UIImageView::setHighlighted(bool highlighted) {
  if (highlighted != highlighted_) {
    highlighted_ = highlighted;
    setNeedsDisplay();
  }
}

CGSize UIImageView::intrinsicContentSize() const {
  return image_ ? image_->size() : UIView::intrinsicContentSize();
}

void UIImageView::startAnimating() {}

void UIImageView::stopAnimating() {}

bool UIImageView::isAnimating() const {
  return false;
}

void UIImageView::displayLayer(CALayer& layer) {
  layer.setContents(image_ ? image_->CGImage() : nullptr);
}
