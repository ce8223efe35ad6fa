#include "settings/items/TableItem.h"

#include <QKeyEvent>
#include <QQuickWindow>
#include <algorithm>
#include <utility>

#include "platform/foundation/NSRunLoop.h"
#include "platform/uikit/UITableView.h"
#include "settings/items/TableCellItem.h"
#include "settings/mirror/ViewMirror.h"

namespace {

// A pause in typing, in milliseconds, after which the next letter begins another word.
constexpr quint64 kTypingPause = 1000;
// How much of what is in sight a page key goes on by.
constexpr qreal kPagePart = 0.8;

}  // namespace

TableItem::TableItem(QQuickItem* parent) : ViewItem(parent) {
  setFlag(ItemIsFocusScope);
}

TableItem::~TableItem() {
  setScrolling(false);
}

void TableItem::setScrolling(bool scrolling) {
  if (scrolling == scrolling_) {
    return;
  }
  scrolling_ = scrolling;
  NSRunLoop::mainRunLoop().setCurrentMode(scrolling ? UITrackingRunLoopMode : NSDefaultRunLoopMode);
  emit scrollingChanged();
}

void TableItem::tapRow(const UITableViewCell& cell) {
  auto* table = viewAs<UITableView>();
  if (const auto path = table ? table->indexPathForCell(cell) : std::nullopt) {
    table->tapRow(*path);
  }
}

QString TableItem::accessibleName() const {
  return tr("Settings");
}

void TableItem::takeOverLook() {
  contentHeight_ = viewAs<UITableView>()->contentSize().height;
}

void TableItem::itemChange(ItemChange change, const ItemChangeData& data) {
  ViewItem::itemChange(change, data);
  if (change != ItemSceneChange) {
    return;
  }
  if (data.window) {
    connect(data.window, &QQuickWindow::activeFocusItemChanged, this, &TableItem::followFocus,
            Qt::UniqueConnection);
    connect(mirror(), &ViewMirror::committed, this, &TableItem::restoreRow, Qt::UniqueConnection);
  }
}

QList<TableCellItem*> TableItem::stops() const {
  QList<TableCellItem*> rows;
  auto* table = viewAs<UITableView>();
  if (!table) {
    return rows;
  }
  for (auto* child : mirror()->itemFor(*table->wrapperView()).childItems()) {
    auto* row = qobject_cast<TableCellItem*>(child);
    if (row && row->isVisible() && row->isStop()) {
      rows.append(row);
    }
  }
  return rows;
}

std::optional<NSIndexPath> TableItem::pathOf(const TableCellItem& cell) const {
  const auto* table = viewAs<UITableView>();
  const auto* view = static_cast<const UITableViewCell*>(cell.view());
  return table && view ? table->indexPathForCell(*view) : std::nullopt;
}

TableCellItem* TableItem::cellAt(NSIndexPath indexPath) const {
  const auto* table = viewAs<UITableView>();
  const auto cell = table ? table->cellForRowAtIndexPath(indexPath) : nullptr;
  return cell ? qobject_cast<TableCellItem*>(&mirror()->itemFor(*cell)) : nullptr;
}

void TableItem::makeCurrent(TableCellItem* row) {
  if (current_ == row) {
    return;
  }
  if (current_) {
    current_->setActiveFocusOnTab(false);
  }
  current_ = row;
  if (row) {
    currentPath_ = pathOf(*row);
    // A row with a field is reached through the field, which is a stop of its own.
    row->setActiveFocusOnTab(row->isPressable());
  }
}

void TableItem::followFocus() {
  auto* focused = window() ? window()->activeFocusItem() : nullptr;
  for (auto* item = focused; item && item != this; item = item->parentItem()) {
    auto* row = qobject_cast<TableCellItem*>(item);
    if (row && row->ancestor<TableItem>() == this) {
      makeCurrent(row);
      // A row may be higher than the page; what the keyboard is on has to be in sight.
      const QRectF place = focused->mapRectToItem(row, QRectF(QPointF(), focused->size()));
      emit revealRequested(row->y() + place.y(), place.height());
      return;
    }
  }
}

void TableItem::itemIsGoing(const ViewItem& item) {
  if (current_ != &item) {
    return;
  }
  auto* focused = window() ? window()->activeFocusItem() : nullptr;
  if (focused && (focused == &item || item.isAncestorOf(focused))) {
    lostFocus_ = LostFocus::kActive;
  } else if (item.hasFocus()) {
    lostFocus_ = LostFocus::kScope;
  }
  focusWasVisible_ = current_->isFocusVisible();
  current_.clear();
}

void TableItem::restoreRow() {
  if (current_) {
    return;
  }
  auto* row = currentPath_ ? cellAt(*currentPath_) : nullptr;
  if (!row || !row->isStop()) {
    const auto rows = stops();
    row = rows.isEmpty() ? nullptr : rows.front();
  }
  const auto lost = std::exchange(lostFocus_, LostFocus::kNone);
  makeCurrent(row);
  if (row && lost == LostFocus::kActive) {
    row->takeFocus(focusWasVisible_ ? Qt::TabFocusReason : Qt::OtherFocusReason);
  } else if (row && lost == LostFocus::kScope) {
    row->setFocus(true, Qt::OtherFocusReason);
  }
}

void TableItem::focusRow(TableCellItem& row) {
  row.takeFocus(Qt::TabFocusReason);
}

TableCellItem* TableItem::rowForKey(int key) const {
  const auto rows = stops();
  if (rows.isEmpty()) {
    return nullptr;
  }
  const bool inList = current_ && current_->isAncestorOf(window()->activeFocusItem());
  const bool onRow = current_ && (inList || current_->hasActiveFocus());
  const auto at = onRow ? rows.indexOf(current_) : -1;
  const auto last = rows.size() - 1;
  const qreal page = height() * kPagePart;
  const qreal here = onRow ? current_->y() : 0;
  switch (key) {
    case Qt::Key_Down:
      return rows[std::min(at + 1, last)];
    case Qt::Key_Up:
      return at < 0 ? rows.back() : rows[std::max<qsizetype>(at - 1, 0)];
    case Qt::Key_Home:
      return rows.front();
    case Qt::Key_End:
      return rows.back();
    case Qt::Key_PageDown:
      return *std::ranges::find_if(rows.begin(), rows.end() - 1,
                                   [&](const auto* row) { return row->y() >= here + page; });
    case Qt::Key_PageUp:
      return *std::ranges::find_if(rows.rbegin(), rows.rend() - 1,
                                   [&](const auto* row) { return row->y() <= here - page; });
    default:
      return nullptr;
  }
}

TableCellItem* TableItem::rowForTyping(const QKeyEvent& event) {
  const bool command =
      event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  if (command || event.text().isEmpty() || !event.text().front().isPrint()) {
    return nullptr;
  }
  if (event.timestamp() - lastTyped_ > kTypingPause) {
    typed_.clear();
  }
  if (typed_.isEmpty() && event.text().front().isSpace()) {
    return nullptr;
  }
  lastTyped_ = event.timestamp();
  typed_ += event.text();
  const auto rows = stops();
  // The same letter again goes on to the next row that begins with it.
  const bool sameLetter = typed_.count(typed_.front(), Qt::CaseInsensitive) == typed_.size();
  const QString wanted = sameLetter ? typed_.left(1) : typed_;
  const auto at = current_ && current_->hasActiveFocus() ? rows.indexOf(current_) : -1;
  const auto start = sameLetter ? at + 1 : std::max<qsizetype>(at, 0);
  for (qsizetype step = 0; step < rows.size(); ++step) {
    auto* row = rows[(start + step) % rows.size()];
    if (row->title().startsWith(wanted, Qt::CaseInsensitive)) {
      return row;
    }
  }
  return nullptr;
}

void TableItem::keyPressEvent(QKeyEvent* event) {
  TableCellItem* row = nullptr;
  if (!(event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier))) {
    row = rowForKey(event->key());
  }
  if (!row) {
    row = rowForTyping(*event);
  }
  if (row) {
    focusRow(*row);
    return;
  }
  event->ignore();
}
