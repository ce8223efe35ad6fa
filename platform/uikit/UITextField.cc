#include "platform/uikit/UITextField.h"

#include <utility>

constexpr ClassOf<UITextField> UITextField::classObject{"UITextField"};

namespace {

std::weak_ptr<UITextField>& focusedField() {
  static std::weak_ptr<UITextField> field;
  return field;
}

}  // namespace

UITextField::~UITextField() = default;

void UITextField::setText(std::string text) {
  text_ = std::move(text);
  edited_ = false;
  setNeedsDisplay();
}

void UITextField::setPlaceholder(std::string placeholder) {
  placeholder_ = std::move(placeholder);
  setNeedsDisplay();
}

void UITextField::setKeyboard(UIKeyboardType keyboard, UITextAutocapitalizationType capitals,
                              UITextAutocorrectionType correction) {
  keyboardType_ = keyboard;
  autocapitalizationType_ = capitals;
  autocorrectionType_ = correction;
  setNeedsDisplay();
}

std::shared_ptr<UITextField> UITextField::firstResponder() {
  return focusedField().lock();
}

bool UITextField::isFirstResponder() const {
  return firstResponder().get() == this;
}

bool UITextField::becomeFirstResponder() {
  if (isFirstResponder()) {
    return true;
  }
  if (!isEnabled()) {
    return false;
  }
  if (const auto former = firstResponder()) {
    former->resignFirstResponder();
  }
  focusedField() = cast<UITextField>(shared_from_this());
  setNeedsDisplay();
  return true;
}

bool UITextField::resignFirstResponder() {
  const auto keptAlive = shared_from_this();
  if (isFirstResponder()) {
    focusedField().reset();
    setNeedsDisplay();
  }
  commitEdit();
  return true;
}

void UITextField::edit(std::string text) {
  text_ = std::move(text);
  edited_ = true;
  setNeedsDisplay();
}

void UITextField::pressReturn() {
  resignFirstResponder();
}

void UITextField::commitEdit() {
  if (std::exchange(edited_, false)) {
    sendActionsForControlEvents(UIControlEvent::kEditingDidEnd);
  }
}
