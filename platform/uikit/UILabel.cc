#include "platform/uikit/UILabel.h"

#include <utility>

#include "platform/services.h"

constexpr ClassOf<UILabel> UILabel::classObject{"UILabel"};

void UILabel::setText(std::string text) {
  text_ = std::move(text);
  setNeedsDisplay();
}

void UILabel::setTextColor(UIColor color) {
  textColor_ = color;
  setNeedsDisplay();
}

void UILabel::setFont(UIFont font) {
  font_ = font;
  setNeedsDisplay();
}

void UILabel::setTextAlignment(NSTextAlignment alignment) {
  textAlignment_ = alignment;
  setNeedsDisplay();
}

void UILabel::setNumberOfLines(int lines) {
  numberOfLines_ = lines;
  setNeedsDisplay();
}

CGSize UILabel::sizeThatFits(CGFloat width) const {
  return text_.empty() ? CGSizeZero : services().text->sizeOfText(text_, font_, width);
}
