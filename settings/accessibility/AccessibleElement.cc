#include "settings/accessibility/AccessibleElement.h"

#include <QVariant>

QAccessible::Role AccessibleElement::accessibleRole() const {
  switch (kind_) {
    case Kind::Button:
      return QAccessible::Button;
    case Kind::Heading:
      return QAccessible::Heading;
    case Kind::Text:
      return QAccessible::StaticText;
    case Kind::TextArea:
      return QAccessible::EditableText;
    case Kind::Dialog:
      return QAccessible::Dialog;
    case Kind::Notification:
      return QAccessible::Notification;
    case Kind::Window:
      return QAccessible::Pane;
    case Kind::None:
      break;
  }
  return QAccessible::NoRole;
}

void AccessibleElement::setName(const QString& name) {
  if (name == name_) {
    return;
  }
  name_ = name;
  emit nameChanged();
  notifyAccessibleChange(QAccessible::NameChanged);
}

void AccessibleElement::announce() {
  notifyAccessibleChange(isVisible() ? QAccessible::ObjectShow : QAccessible::ObjectHide);
}

QString AccessibleElement::editableText() const {
  return editor_ ? editor_->property("text").toString() : QString();
}

int AccessibleElement::cursorPosition() const {
  return editor_ ? editor_->property("cursorPosition").toInt() : 0;
}

void AccessibleElement::setCursorPosition(int position) {
  if (editor_) {
    const int last = static_cast<int>(editableText().size());
    editor_->setProperty("cursorPosition", qBound(0, position, last));
  }
}

void AccessibleElement::replaceEditableText(const QString& text) {
  if (editor_) {
    editor_->setProperty("text", text);
  }
}
