#include "platform/uikit/UIButton.h"

constexpr ClassOf<UIButton> UIButton::classObject{"UIButton"};

void UIButton::setImage(const std::shared_ptr<UIImage>& image) {
  image_ = image;
  setNeedsDisplay();
}
