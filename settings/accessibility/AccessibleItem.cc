#include "settings/accessibility/AccessibleItem.h"

#include <QFocusEvent>
#include <QKeyEvent>

AccessibleItem::AccessibleItem(QQuickItem* parent) : QQuickItem(parent) {
  connect(this, &QQuickItem::activeFocusChanged, this, [this](bool focused) {
    if (focused && accessibleRole() != QAccessible::NoRole) {
      notifyAccessibleChange(QAccessible::Focus);
    }
  });
}

void AccessibleItem::addAccessibleState(QAccessible::State& state) const {
  state.focusable = isPressable() || activeFocusOnTab();
}

void AccessibleItem::tap() {
  takeFocus(Qt::MouseFocusReason);
  if (isPressable()) {
    press();
  }
}

void AccessibleItem::takeFocus(Qt::FocusReason reason) {
  forceActiveFocus(reason);
}

void AccessibleItem::focusInEvent(QFocusEvent* event) {
  setFocusVisible(event->reason() == Qt::TabFocusReason ||
                  event->reason() == Qt::BacktabFocusReason ||
                  event->reason() == Qt::ShortcutFocusReason);
}

void AccessibleItem::focusOutEvent(QFocusEvent* /*event*/) {
  setFocusVisible(false);
}

void AccessibleItem::keyPressEvent(QKeyEvent* event) {
  const bool pressKey = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                        event->key() == Qt::Key_Space;
  if (!pressKey || event->modifiers() & ~Qt::KeypadModifier || !isPressable() || !hasFocus()) {
    event->ignore();
    return;
  }
  if (!event->isAutoRepeat()) {
    press();
  }
}

void AccessibleItem::notifyAccessibleChange(QAccessible::Event change) {
  if (!QAccessible::isActive()) {
    return;
  }
  if (change == QAccessible::StateChanged) {
    QAccessible::State changed;
    changed.checked = true;
    changed.disabled = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
    return;
  }
  QAccessibleEvent event(this, change);
  QAccessible::updateAccessibility(&event);
}

void AccessibleItem::setFocusVisible(bool visible) {
  if (visible != focusVisible_) {
    focusVisible_ = visible;
    emit focusVisibleChanged();
  }
}
