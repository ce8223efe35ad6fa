#include "settings/accessibility/choiceGroup.h"

#include <QKeyEvent>
#include <QList>
#include <algorithm>

#include "settings/accessibility/AccessibleItem.h"

namespace {

bool isChecked(const AccessibleItem* item) {
  QAccessible::State state;
  item->addAccessibleState(state);
  return state.checked;
}

// From left to right, as they are seen.
QList<AccessibleItem*> membersOf(const QQuickItem& parent) {
  QList<AccessibleItem*> members;
  for (auto* child : parent.childItems()) {
    auto* item = qobject_cast<AccessibleItem*>(child);
    if (item && item->accessibleRole() == QAccessible::RadioButton && item->isVisible() &&
        item->isEnabled()) {
      members.append(item);
    }
  }
  std::ranges::stable_sort(members, {}, [](const auto* item) { return item->x(); });
  return members;
}

}  // namespace

void updateTabStopAmong(const QQuickItem& parent) {
  const auto members = membersOf(parent);
  auto stop =
      std::ranges::find_if(members, [](const auto* item) { return item->hasActiveFocus(); });
  if (stop == members.end()) {
    stop = std::ranges::find_if(members, isChecked);
  }
  if (stop == members.end()) {
    stop = members.begin();
  }
  for (auto member = members.begin(); member != members.end(); ++member) {
    (*member)->setActiveFocusOnTab(member == stop);
  }
}

bool moveAmongChoices(AccessibleItem& member, const QKeyEvent& event) {
  const bool left = event.key() == Qt::Key_Left;
  if ((!left && event.key() != Qt::Key_Right) || event.modifiers() & ~Qt::KeypadModifier ||
      !member.parentItem()) {
    return false;
  }
  const auto members = membersOf(*member.parentItem());
  const auto at = members.indexOf(&member) + (left ? -1 : 1);
  if (at >= 0 && at < members.size()) {
    members[at]->takeFocus(Qt::TabFocusReason);
  }
  return true;
}
