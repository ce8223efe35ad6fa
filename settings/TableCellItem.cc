#include "settings/TableCellItem.h"

#include <QStringList>

#include "platform/preferences/PSTableCell.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/metrics.h"
#include "settings/SpokenText.h"
#include "settings/TableItem.h"
#include "settings/TextFieldItem.h"

namespace {

TextFieldItem* fieldIn(const QQuickItem& item) {
  for (auto* child : item.childItems()) {
    if (auto* field = qobject_cast<TextFieldItem*>(child)) {
      return field;
    }
    if (auto* field = fieldIn(*child)) {
      return field;
    }
  }
  return nullptr;
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
  return selectable_ || fieldIn(*this);
}

QAccessible::Role TableCellItem::accessibleRole() const {
  if (selectable_) {
    return isChoice_ ? QAccessible::RadioButton : QAccessible::Button;
  }
  return name_.isEmpty() || fieldIn(*this) ? QAccessible::NoRole : QAccessible::StaticText;
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
  if (auto* field = selectable_ ? nullptr : fieldIn(*this)) {
    field->takeFocus(reason);
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
  const QString name = texts.join(QStringLiteral(", "));
  if (name != name_) {
    name_ = name;
    notifyAccessibleChange(QAccessible::NameChanged);
  }
}
