#pragma once

#include <QAccessibleObject>

class AccessibleItem;

/// What assistive technology sees of an AccessibleItem. Written on the toolkit's public interface,
/// because its stock items take no text from the accessibility bus, list a press twice and call
/// disabled rows enabled. Main thread.
class AccessibleItemInterface : public QAccessibleObject,
                                public QAccessibleActionInterface,
                                public QAccessibleTextInterface,
                                public QAccessibleEditableTextInterface {
 public:
  explicit AccessibleItemInterface(AccessibleItem& item);

  /// For QAccessible::installFactory.
  static QAccessibleInterface* make(const QString& className, QObject* object);

  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int index) const override;
  int childCount() const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QString text(QAccessible::Text kind) const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  QRect rect() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QStringList actionNames() const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString& name) const override;

  void selection(int index, int* start, int* end) const override;
  int selectionCount() const override { return 0; }
  void addSelection(int start, int end) override;
  void removeSelection(int index) override;
  void setSelection(int index, int start, int end) override;
  int cursorPosition() const override;
  void setCursorPosition(int position) override;
  QString text(int start, int end) const override;
  int characterCount() const override;
  QRect characterRect(int offset) const override;
  int offsetAtPoint(const QPoint& point) const override;
  void scrollToSubstring(int start, int end) override;
  QString attributes(int offset, int* start, int* end) const override;

  void deleteText(int start, int end) override;
  void insertText(int offset, const QString& text) override;
  void replaceText(int start, int end, const QString& text) override;

 private:
  AccessibleItem* item() const;
};
