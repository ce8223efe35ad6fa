#include "platform/uikit/UIButton.h"

constexpr ClassDescription UIButton::classObject{
    "UIButton", &UIControl::classObject, &allocObject<UIButton>, {}};

void UIButton::setImage(const std::shared_ptr<UIImage>& image) {
  image_ = image;
  setNeedsDisplay();
}
