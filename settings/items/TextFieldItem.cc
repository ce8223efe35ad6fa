#include "settings/items/TextFieldItem.h"

#include <QVariant>
#include <utility>

#include "platform/uikit/UITextField.h"
#include "settings/appearance/SystemFont.h"
#include "settings/items/TableCellItem.h"

namespace {

Qt::InputMethodHints hintsFor(const UITextField& field) {
  Qt::InputMethodHints hints;
  if (field.keyboardType() == UIKeyboardType::kPhonePad) {
    hints |= Qt::ImhDialableCharactersOnly;
  }
  if (field.autocapitalizationType() == UITextAutocapitalizationType::kNone) {
    hints |= Qt::ImhNoAutoUppercase;
  }
  if (field.autocorrectionType() == UITextAutocorrectionType::kNo) {
    hints |= Qt::ImhNoPredictiveText;
  }
  return hints;
}

}  // namespace

TextFieldItem::TextFieldItem(QQuickItem* parent) : ViewItem(parent) {
  setFlag(ItemIsFocusScope);
}

void TextFieldItem::beginEditing() {
  if (auto* field = viewAs<UITextField>()) {
    const auto keptAlive = field->shared_from_this();
    field->becomeFirstResponder();
  }
}

void TextFieldItem::endEditing() {
  if (auto* field = viewAs<UITextField>()) {
    const auto keptAlive = field->shared_from_this();
    field->resignFirstResponder();
  }
}

void TextFieldItem::edit(const QString& text) {
  if (auto* field = viewAs<UITextField>()) {
    field->edit(text.toStdString());
  }
}

void TextFieldItem::pressReturn() {
  if (auto* field = viewAs<UITextField>()) {
    const auto keptAlive = field->shared_from_this();
    field->pressReturn();
  }
}

void TextFieldItem::cursorMoved() {
  if (QAccessible::isActive()) {
    QAccessibleTextCursorEvent event(this, cursorPosition());
    QAccessible::updateAccessibility(&event);
  }
}

QString TextFieldItem::accessibleName() const {
  if (const auto* cell = ancestor<TableCellItem>(); cell && !cell->title().isEmpty()) {
    return cell->title();
  }
  return placeholder_;
}

void TextFieldItem::addAccessibleState(QAccessible::State& state) const {
  state.focusable = true;
  state.editable = true;
}

int TextFieldItem::cursorPosition() const {
  return editor_ ? editor_->property("cursorPosition").toInt() : 0;
}

void TextFieldItem::setCursorPosition(int position) {
  if (editor_) {
    editor_->setProperty("cursorPosition", qBound(0, position, static_cast<int>(text_.size())));
  }
}

void TextFieldItem::replaceEditableText(const QString& text) {
  // The text is committed when the field loses the focus, so it has to have it.
  takeFocus(Qt::OtherFocusReason);
  beginEditing();
  if (editor_) {
    editor_->setProperty("text", text);
  }
  edit(text);
}

void TextFieldItem::takeFocus(Qt::FocusReason reason) {
  if (editor_) {
    editor_->forceActiveFocus(reason);
  }
}

void TextFieldItem::takeOverLook() {
  const auto& field = *viewAs<UITextField>();
  const QString text = QString::fromStdString(field.text());
  const QString former = std::exchange(text_, text);
  placeholder_ = QString::fromStdString(field.placeholder());
  font_ = system_font::font(field.font());
  textColor_ = toQColor(field.textColor());
  hints_ = hintsFor(field);
  editing_ = field.isFirstResponder();
  setEnabled(field.isEnabled());
  if (text != former && QAccessible::isActive()) {
    QAccessibleTextUpdateEvent event(this, 0, former, text);
    QAccessible::updateAccessibility(&event);
  }
}
