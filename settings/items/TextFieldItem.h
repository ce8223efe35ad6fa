#pragma once

#include <QFont>

#include "settings/mirror/ViewItem.h"

/// Shows a UITextField. The QML type holds the toolkit's own line editor; this class carries focus
/// and text between it and the field.
class TextFieldItem : public ViewItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString text READ text NOTIFY lookChanged)
  Q_PROPERTY(QString placeholder READ placeholder NOTIFY lookChanged)
  Q_PROPERTY(QFont font READ font NOTIFY lookChanged)
  Q_PROPERTY(QColor textColor READ textColor NOTIFY lookChanged)
  Q_PROPERTY(Qt::InputMethodHints inputMethodHints READ inputMethodHints NOTIFY lookChanged)
  /// Whether the field has the focus as the frameworks see it.
  Q_PROPERTY(bool editing READ isEditing NOTIFY lookChanged)
  /// The line editor.
  Q_PROPERTY(QQuickItem* editor MEMBER editor_)

 public:
  explicit TextFieldItem(QQuickItem* parent = nullptr);

  QString text() const { return text_; }
  QString placeholder() const { return placeholder_; }
  QFont font() const { return font_; }
  QColor textColor() const { return textColor_; }
  Qt::InputMethodHints inputMethodHints() const { return hints_; }
  bool isEditing() const { return editing_; }

  Q_INVOKABLE void beginEditing();
  Q_INVOKABLE void endEditing();
  Q_INVOKABLE void edit(const QString& text);
  Q_INVOKABLE void pressReturn();
  /// The line editor's cursor has moved.
  Q_INVOKABLE void cursorMoved();

  /// A tap places its cursor.
  bool keepsTaps() const override { return true; }
  QAccessible::Role accessibleRole() const override { return QAccessible::EditableText; }
  QString accessibleName() const override;
  void addAccessibleState(QAccessible::State& state) const override;
  QString editableText() const override { return text_; }
  int cursorPosition() const override;
  void setCursorPosition(int position) override;
  void replaceEditableText(const QString& text) override;
  void takeFocus(Qt::FocusReason reason) override;

 protected:
  void takeOverLook() override;

 private:
  QString text_;
  QString placeholder_;
  QFont font_;
  QColor textColor_;
  Qt::InputMethodHints hints_;
  QQuickItem* editor_ = nullptr;
  bool editing_ = false;
};
