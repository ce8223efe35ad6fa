#pragma once

#include <QString>

#include "settings/mirror/ViewItem.h"

class TableItem;
class UITableViewCell;

/// Shows a UITableViewCell: background, separators and the indicator at the right end. What stands
/// in the row are views of their own.
class TableCellItem : public ViewItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(bool selectable READ isPressable NOTIFY lookChanged)
  /// Whether the row has the colour of every row, and none of its own.
  Q_PROPERTY(bool plain READ isPlain NOTIFY lookChanged)
  Q_PROPERTY(Indicator indicator READ indicator NOTIFY lookChanged)
  Q_PROPERTY(bool opensGroup READ opensGroup NOTIFY lookChanged)
  Q_PROPERTY(bool closesGroup READ closesGroup NOTIFY lookChanged)
  /// Distance of the separator under the row from the row's edges.
  Q_PROPERTY(qreal separatorLeft READ separatorLeft NOTIFY lookChanged)
  Q_PROPERTY(qreal separatorRight READ separatorRight NOTIFY lookChanged)

 public:
  // As QML has it, with a capital. NOLINTNEXTLINE(readability-identifier-naming)
  enum class Indicator { None, Disclosure, Checkmark };
  Q_ENUM(Indicator)

  using ViewItem::ViewItem;

  bool isPlain() const { return plain_; }
  Indicator indicator() const { return indicator_; }
  bool opensGroup() const { return opensGroup_; }
  bool closesGroup() const { return closesGroup_; }
  qreal separatorLeft() const { return separatorLeft_; }
  qreal separatorRight() const { return separatorRight_; }
  const QString& title() const { return title_; }

  /// Whether the keyboard stops here: the row can be pressed or holds a control.
  bool isStop() const;

  QAccessible::Role accessibleRole() const override;
  QString accessibleName() const override { return name_; }
  void addAccessibleState(QAccessible::State& state) const override;
  bool isPressable() const override { return selectable_; }
  void press() override;
  bool speaksFor(const AccessibleItem& element) const override;
  void takeFocus(Qt::FocusReason reason) override;

 protected:
  void takeOverLook() override;

 private:
  void takeOverSeparator(const UITableViewCell& cell);
  void takeOverName(const UITableViewCell& cell);

  QString title_;
  QString name_;
  Indicator indicator_ = Indicator::None;
  qreal separatorLeft_ = 0;
  qreal separatorRight_ = 0;
  bool plain_ = true;
  bool selectable_ = false;
  bool opensGroup_ = true;
  bool closesGroup_ = true;
  bool isChoice_ = false;
  bool holdsAlternatives_ = false;
};
