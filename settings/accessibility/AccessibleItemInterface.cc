#include "settings/accessibility/AccessibleItemInterface.h"

#include <QQuickWindow>
#include <algorithm>

#include "settings/accessibility/AccessibleItem.h"

namespace {

void collectElements(const QQuickItem& item, const AccessibleItem& speaker,
                     QList<AccessibleItem*>& elements) {
  for (auto* child : item.childItems()) {
    if (!child->isVisible()) {
      continue;
    }
    auto* element = qobject_cast<AccessibleItem*>(child);
    if (!element || element->accessibleRole() == QAccessible::NoRole) {
      collectElements(*child, speaker, elements);
    } else if (!speaker.speaksFor(*element)) {
      elements.append(element);
    }
  }
}

QList<AccessibleItem*> elementsIn(const AccessibleItem& item) {
  QList<AccessibleItem*> elements;
  collectElements(item, item, elements);
  return elements;
}

}  // namespace

AccessibleItemInterface::AccessibleItemInterface(AccessibleItem& item) : QAccessibleObject(&item) {}

QAccessibleInterface* AccessibleItemInterface::make(const QString& className, QObject* object) {
  if (className != QLatin1String(AccessibleItem::staticMetaObject.className())) {
    return nullptr;
  }
  return new AccessibleItemInterface(static_cast<AccessibleItem&>(*object));
}

AccessibleItem* AccessibleItemInterface::item() const {
  return static_cast<AccessibleItem*>(object());
}

QAccessibleInterface* AccessibleItemInterface::parent() const {
  for (auto* ancestor = item()->parentItem(); ancestor; ancestor = ancestor->parentItem()) {
    auto* element = qobject_cast<AccessibleItem*>(ancestor);
    if (element && element->accessibleRole() != QAccessible::NoRole) {
      return QAccessible::queryAccessibleInterface(element);
    }
  }
  return QAccessible::queryAccessibleInterface(item()->window());
}

QAccessibleInterface* AccessibleItemInterface::child(int index) const {
  const auto elements = elementsIn(*item());
  return index >= 0 && index < elements.size()
             ? QAccessible::queryAccessibleInterface(elements[index])
             : nullptr;
}

int AccessibleItemInterface::childCount() const {
  return static_cast<int>(elementsIn(*item()).size());
}

int AccessibleItemInterface::indexOfChild(const QAccessibleInterface* child) const {
  return static_cast<int>(
      elementsIn(*item()).indexOf(qobject_cast<AccessibleItem*>(child->object())));
}

QString AccessibleItemInterface::text(QAccessible::Text kind) const {
  switch (kind) {
    case QAccessible::Name:
      return item()->accessibleName();
    case QAccessible::Value:
      return role() == QAccessible::EditableText ? item()->editableText() : QString();
    case QAccessible::Description:
      return item()->accessibleDescription();
    default:
      return {};
  }
}

QAccessible::Role AccessibleItemInterface::role() const {
  return item()->accessibleRole();
}

QAccessible::State AccessibleItemInterface::state() const {
  QAccessible::State state;
  if (!item()->window()) {
    state.invalid = true;
    return state;
  }
  item()->addAccessibleState(state);
  state.invisible = !item()->isVisible();
  state.disabled = !item()->isEnabled();
  state.focused = item()->hasActiveFocus();
  if (state.disabled) {
    state.focusable = false;
  }
  const QRectF scene = item()->mapRectToScene(QRectF(QPointF(), item()->size()));
  state.offscreen = !scene.intersects(QRectF(QPointF(), item()->window()->size()));
  return state;
}

QRect AccessibleItemInterface::rect() const {
  return QRectF(item()->mapToGlobal(QPointF()), item()->size()).toAlignedRect();
}

void* AccessibleItemInterface::interface_cast(QAccessible::InterfaceType type) {
  const bool isEditable = role() == QAccessible::EditableText;
  if (type == QAccessible::ActionInterface) {
    return static_cast<QAccessibleActionInterface*>(this);
  }
  if (type == QAccessible::TextInterface && isEditable) {
    return static_cast<QAccessibleTextInterface*>(this);
  }
  if (type == QAccessible::EditableTextInterface && isEditable) {
    return static_cast<QAccessibleEditableTextInterface*>(this);
  }
  return nullptr;
}

QStringList AccessibleItemInterface::actionNames() const {
  QStringList names;
  if (item()->isPressable() && item()->isEnabled()) {
    names << pressAction();
  }
  if (const QString further = item()->furtherAction(); !further.isEmpty() && item()->isEnabled()) {
    names << further;
  }
  return names;
}

void AccessibleItemInterface::doAction(const QString& name) {
  if (!item()->isEnabled() || !item()->isVisible()) {
    return;
  }
  if (name == pressAction()) {
    item()->tap();
  } else if (!name.isEmpty() && name == item()->furtherAction()) {
    item()->doFurtherAction();
  } else if (name == setFocusAction()) {
    item()->takeFocus(Qt::TabFocusReason);
  }
}

QStringList AccessibleItemInterface::keyBindingsForAction(const QString& /*name*/) const {
  return {};
}

void AccessibleItemInterface::selection(int /*index*/, int* start, int* end) const {
  *start = 0;
  *end = 0;
}

void AccessibleItemInterface::addSelection(int /*start*/, int /*end*/) {}

void AccessibleItemInterface::removeSelection(int /*index*/) {}

void AccessibleItemInterface::setSelection(int /*index*/, int /*start*/, int /*end*/) {}

int AccessibleItemInterface::cursorPosition() const {
  return item()->cursorPosition();
}

void AccessibleItemInterface::setCursorPosition(int position) {
  item()->setCursorPosition(position);
}

QString AccessibleItemInterface::text(int start, int end) const {
  return item()->editableText().mid(start, end - start);
}

int AccessibleItemInterface::characterCount() const {
  return static_cast<int>(item()->editableText().size());
}

QRect AccessibleItemInterface::characterRect(int /*offset*/) const {
  return rect();
}

int AccessibleItemInterface::offsetAtPoint(const QPoint& /*point*/) const {
  return characterCount();
}

void AccessibleItemInterface::scrollToSubstring(int /*start*/, int /*end*/) {}

QString AccessibleItemInterface::attributes(int /*offset*/, int* start, int* end) const {
  *start = 0;
  *end = characterCount();
  return {};
}

void AccessibleItemInterface::deleteText(int start, int end) {
  replaceText(start, end, {});
}

void AccessibleItemInterface::insertText(int offset, const QString& text) {
  replaceText(offset, offset, text);
}

void AccessibleItemInterface::replaceText(int start, int end, const QString& text) {
  const QString former = item()->editableText();
  const auto size = former.size();
  const auto from = std::clamp<qsizetype>(start, 0, size);
  const auto to = end < 0 ? size : std::clamp<qsizetype>(end, from, size);
  item()->replaceEditableText(former.first(from) + text + former.sliced(to));
}
