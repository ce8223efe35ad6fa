#include "settings/items/HeaderFooterItem.h"

#include "platform/uikit/UITableViewHeaderFooterView.h"

QAccessible::Role HeaderFooterItem::accessibleRole() const {
  if (name_.isEmpty()) {
    return QAccessible::NoRole;
  }
  return isHeader_ ? QAccessible::Heading : QAccessible::StaticText;
}

void HeaderFooterItem::takeOverLook() {
  const auto& view = *viewAs<UITableViewHeaderFooterView>();
  isHeader_ = view.edge() == UITableViewSectionEdge::kHeader;
  name_ = QString::fromStdString(view.textLabel()->text()).trimmed();
}
