#pragma once

#include <QList>
#include <QPointer>
#include <QString>
#include <optional>

#include "platform/foundation/NSIndexPath.h"
#include "settings/mirror/ViewItem.h"

class TableCellItem;
class UITableViewCell;

/// Shows a UITableView on one scrolling surface, and leads the keyboard through its rows: Tab
/// reaches one of them, the arrows go from row to row, typing goes to the row that begins so.
class TableItem : public ViewItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(qreal contentHeight READ contentHeight NOTIFY lookChanged)
  /// Whether the user's finger, or what it has set in motion, moves the list.
  Q_PROPERTY(bool scrolling READ isScrolling WRITE setScrolling NOTIFY scrollingChanged)

 public:
  explicit TableItem(QQuickItem* parent = nullptr);
  ~TableItem() override;
  Q_DISABLE_COPY_MOVE(TableItem)

  qreal contentHeight() const { return contentHeight_; }
  bool isScrolling() const { return scrolling_; }
  /// Puts the main run loop into its tracking mode meanwhile.
  void setScrolling(bool scrolling);

  /// The user has tapped that row.
  void tapRow(const UITableViewCell& cell);
  bool takesPageFocus() const override { return true; }
  void itemIsGoing(const ViewItem& item) override;

  QAccessible::Role accessibleRole() const override { return QAccessible::List; }
  QString accessibleName() const override;

  /// Brings the row that the keyboard is in into sight.
  Q_INVOKABLE void revealFocus() { followFocus(); }

 signals:
  void scrollingChanged();
  /// The keyboard has gone to what lies there in the list.
  void revealRequested(qreal y, qreal height);

 protected:
  void takeOverLook() override;
  void keyPressEvent(QKeyEvent* event) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  enum class LostFocus { kNone, kScope, kActive };

  QList<TableCellItem*> stops() const;
  TableCellItem* cellAt(NSIndexPath indexPath) const;
  std::optional<NSIndexPath> pathOf(const TableCellItem& cell) const;
  void focusRow(TableCellItem& row);
  TableCellItem* rowForKey(int key) const;
  TableCellItem* rowForTyping(const QKeyEvent& event);
  void followFocus();
  void makeCurrent(TableCellItem* row);
  void restoreRow();

  QPointer<TableCellItem> current_;
  std::optional<NSIndexPath> currentPath_;
  LostFocus lostFocus_ = LostFocus::kNone;
  bool focusWasVisible_ = false;
  QString typed_;
  quint64 lastTyped_ = 0;
  qreal contentHeight_ = 0;
  bool scrolling_ = false;
};
