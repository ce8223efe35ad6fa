#pragma once

#include <QAccessible>
#include <QQuickItem>
#include <QString>
#include <qqmlintegration.h>

/// An item that assistive technology may be told of. What is told comes from the virtual functions
/// alone; the items below it that are no AccessibleItem are never listed.
class AccessibleItem : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("a base of elements")
  /// Whether the item has the focus and got it by the keyboard, so that it should be marked.
  Q_PROPERTY(bool focusVisible READ isFocusVisible NOTIFY focusVisibleChanged)

 public:
  explicit AccessibleItem(QQuickItem* parent = nullptr);

  /// NoRole for an item that is no element itself; the elements below it are then its parent's.
  virtual QAccessible::Role accessibleRole() const { return QAccessible::NoRole; }
  virtual QString accessibleName() const { return {}; }
  /// What is to be known beside the name; nothing that cannot be done without.
  virtual QString accessibleDescription() const { return {}; }
  /// Beyond what holds for every item: visibility, focus, enabled.
  virtual void addAccessibleState(QAccessible::State& state) const;

  /// Whether an element below it is told of by this element already.
  virtual bool speaksFor(const AccessibleItem& /*element*/) const { return false; }

  virtual bool isPressable() const { return false; }
  /// What a tap does, after the focus has gone where a tap takes it.
  virtual void press() {}
  /// What can be done with it beside pressing, by its name as the user is told it; empty for
  /// nothing.
  virtual QString furtherAction() const { return {}; }
  virtual void doFurtherAction() {}
  /// As a finger would: takes the focus, then presses.
  Q_INVOKABLE void tap();

  /// Only asked of the roles with text to edit.
  virtual QString editableText() const { return {}; }
  virtual int cursorPosition() const { return 0; }
  virtual void setCursorPosition(int /*position*/) {}
  /// The user has replaced the text by other means than typing.
  virtual void replaceEditableText(const QString& /*text*/) {}

  /// The item that takes the focus for this one.
  virtual void takeFocus(Qt::FocusReason reason);

  bool isFocusVisible() const { return focusVisible_; }

 signals:
  void focusVisibleChanged();

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

  /// Tells assistive technology that name, value or state are no longer what they were.
  void notifyAccessibleChange(QAccessible::Event change);

 private:
  void setFocusVisible(bool visible);

  bool focusVisible_ = false;
};
