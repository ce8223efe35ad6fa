#include "settings/items/TableCellItem.h"

#include <QStringList>
#include <algorithm>

#include "platform/preferences/PSTableCell.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/UITableViewHeaderFooterView.h"
#include "platform/uikit/metrics.h"
#include "settings/accessibility/SpokenText.h"
#include "settings/items/TableItem.h"

namespace {

// What the keyboard goes to in a row that is not pressed itself: a field, or the one of several
// alternatives that the Tab key stops at.
AccessibleItem* controlIn(const QQuickItem& item) {
  for (auto* child : item.childItems()) {
    auto* element = qobject_cast<AccessibleItem*>(child);
    const auto role = element ? element->accessibleRole() : QAccessible::NoRole;
    if (role == QAccessible::EditableText ||
        (role == QAccessible::RadioButton && element->activeFocusOnTab())) {
      return element;
    }
    if (auto* control = controlIn(*child)) {
      return control;
    }
  }
  return nullptr;
}

// The group's title; empty where the row stands in no table yet or its group has none.
QString groupTitle(const UITableViewCell& cell) {
  const auto wrapper = cell.superview();
  const auto table = wrapper ? cast<UITableView>(wrapper->superview()) : nullptr;
  const auto path = table ? table->indexPathForCell(cell) : std::nullopt;
  const auto header =
      path ? cast<UITableViewHeaderFooterView>(table->headerViewForSection(path->section))
           : nullptr;
  return header ? QString::fromStdString(header->textLabel()->text()) : QString();
}

bool holdsAlternatives(const UIView& view) {
  return std::ranges::any_of(view.subviews(), [](const auto& subview) {
    return subview->accessibilitySelected() || holdsAlternatives(*subview);
  });
}

// What the row says beside its title: the value and whatever else is written in it.
void collectTexts(const UIView& view, const UIView* title, QStringList& texts) {
  for (const auto& subview : view.subviews()) {
    const auto label = cast<UILabel>(subview);
    if (label && label.get() != title && !label->isHidden() && !label->text().empty()) {
      texts.append(spokenText(QString::fromStdString(label->text())));
    }
    collectTexts(*subview, title, texts);
  }
}

}  // namespace

bool TableCellItem::isStop() const {
  return selectable_ || controlIn(*this);
}

QAccessible::Role TableCellItem::accessibleRole() const {
  if (selectable_) {
    return isChoice_ ? QAccessible::RadioButton : QAccessible::Button;
  }
  if (holdsAlternatives_) {
    return QAccessible::Grouping;
  }
  return name_.isEmpty() || controlIn(*this) ? QAccessible::NoRole : QAccessible::StaticText;
}

void TableCellItem::addAccessibleState(QAccessible::State& state) const {
  state.focusable = selectable_;
  state.checkable = isChoice_;
  state.checked = indicator_ == Indicator::Checkmark;
}

void TableCellItem::press() {
  auto* cell = viewAs<UITableViewCell>();
  auto* table = ancestor<TableItem>();
  if (cell && table) {
    table->tapRow(*cell);
  }
}

bool TableCellItem::speaksFor(const AccessibleItem& element) const {
  return accessibleRole() != QAccessible::NoRole &&
         element.accessibleRole() == QAccessible::StaticText;
}

void TableCellItem::takeFocus(Qt::FocusReason reason) {
  if (auto* control = selectable_ ? nullptr : controlIn(*this)) {
    control->takeFocus(reason);
    return;
  }
  ViewItem::takeFocus(reason);
}

void TableCellItem::takeOverLook() {
  const auto& cell = *viewAs<UITableViewCell>();
  const auto* row = dynamic_cast<const PSTableCell*>(&cell);
  selectable_ = row && row->isSelectable();
  isChoice_ = row && row->specifier() && row->specifier()->plistForKey("checked");
  opensGroup_ = cell.position() == UITableViewCellPosition::kFirst ||
                cell.position() == UITableViewCellPosition::kSingle;
  closesGroup_ = cell.position() == UITableViewCellPosition::kLast ||
                 cell.position() == UITableViewCellPosition::kSingle;
  plain_ =
      cell.backgroundColor() && cell.backgroundColor()->system == UISystemColor::kRowBackground;
  indicator_ = Indicator::None;
  if (!cell.accessoryView()) {
    if (cell.accessoryType() == UITableViewCellAccessoryType::kDisclosureIndicator) {
      indicator_ = Indicator::Disclosure;
    } else if (cell.accessoryType() == UITableViewCellAccessoryType::kCheckmark) {
      indicator_ = Indicator::Checkmark;
    }
  }
  takeOverSeparator(cell);
  takeOverName(cell);
}

void TableCellItem::takeOverSeparator(const UITableViewCell& cell) {
  if (cell.separatorInset()) {
    separatorLeft_ = cell.separatorInset()->left;
    separatorRight_ = cell.separatorInset()->right;
    return;
  }
  // Unless told otherwise, the separator begins where the title does.
  separatorLeft_ = cell.imageView()->image()
                       ? metrics::kTextInset + metrics::kIconSize + metrics::kTextInset
                       : metrics::kSeparatorInset;
  separatorRight_ = 0;
}

void TableCellItem::takeOverName(const UITableViewCell& cell) {
  title_ = QString::fromStdString(cell.textLabel()->text()).trimmed();
  QStringList texts;
  if (!title_.isEmpty()) {
    texts.append(spokenText(title_));
  }
  collectTexts(cell, cell.textLabel().get(), texts);
  holdsAlternatives_ = holdsAlternatives(cell);
  if (holdsAlternatives_) {
    texts = {groupTitle(cell)};
  }
  const QString name = texts.join(QStringLiteral(", "));
  if (name != name_) {
    name_ = name;
    notifyAccessibleChange(QAccessible::NameChanged);
  }
}
