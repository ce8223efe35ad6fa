#pragma once

#include "settings/accessibility/AccessibleItem.h"

/// An element that the window adds around the pages: a bar button, a heading, a sheet.
class AccessibleElement : public AccessibleItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(Kind kind MEMBER kind_ FINAL)
  /// The toolkit's text editor, for a text area.
  Q_PROPERTY(QQuickItem* editor MEMBER editor_ FINAL)
  Q_PROPERTY(QString hint MEMBER hint_ FINAL)
  Q_PROPERTY(QString furtherAction MEMBER furtherAction_ FINAL)
  Q_PROPERTY(QString name READ accessibleName WRITE setName NOTIFY nameChanged FINAL)

 public:
  // As QML has it, with a capital. NOLINTNEXTLINE(readability-identifier-naming)
  enum class Kind { None, Button, Heading, Text, TextArea, Dialog, Notification, Window };
  Q_ENUM(Kind)

  using AccessibleItem::AccessibleItem;

  QAccessible::Role accessibleRole() const override;
  QString accessibleName() const override { return name_; }
  QString accessibleDescription() const override { return hint_; }
  QString furtherAction() const override { return furtherAction_; }
  void doFurtherAction() override { emit furtherActionAsked(); }
  void setName(const QString& name);
  /// Has assistive technology tell the user what it says, or that it has gone. For a notification.
  Q_INVOKABLE void announce();
  bool isPressable() const override { return kind_ == Kind::Button && isEnabled(); }
  void press() override { emit pressed(); }
  QString editableText() const override;
  int cursorPosition() const override;
  void setCursorPosition(int position) override;
  void replaceEditableText(const QString& text) override;

 signals:
  void nameChanged();
  /// By finger, mouse, key or assistive technology.
  void pressed();
  /// By assistive technology.
  void furtherActionAsked();

 private:
  Kind kind_ = Kind::None;
  QQuickItem* editor_ = nullptr;
  QString name_;
  QString hint_;
  QString furtherAction_;
};
