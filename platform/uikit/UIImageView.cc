#include "platform/uikit/UIImageView.h"

constexpr ClassDescription UIImageView::classObject{
    "UIImageView", &UIView::classObject, &allocObject<UIImageView>, {}};

bool UIImageView::initWithImage(const std::shared_ptr<UIImage>& image) {
  image_ = image;
  return initWithFrame({{}, image ? image->size() : CGSizeZero});
}

void UIImageView::setImage(const std::shared_ptr<UIImage>& image) {
  image_ = image;
  setNeedsDisplay();
}
