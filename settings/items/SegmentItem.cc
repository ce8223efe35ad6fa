#include "settings/items/SegmentItem.h"

#include "settings/accessibility/choiceGroup.h"
#include "settings/items/SegmentedControlItem.h"

SegmentItem::SegmentItem(QQuickItem* parent) : AccessibleItem(parent) {
  connect(this, &QQuickItem::activeFocusChanged, this, &SegmentItem::updateTabStop);
}

void SegmentItem::setChosen(bool chosen) {
  if (chosen == chosen_) {
    return;
  }
  chosen_ = chosen;
  emit chosenChanged();
  notifyAccessibleChange(QAccessible::StateChanged);
  updateTabStop();
}

void SegmentItem::addAccessibleState(QAccessible::State& state) const {
  state.focusable = true;
  state.checkable = true;
  state.checked = chosen_;
}

void SegmentItem::press() {
  for (auto* item = parentItem(); item; item = item->parentItem()) {
    if (auto* control = qobject_cast<SegmentedControlItem*>(item)) {
      control->choose(number_);
      return;
    }
  }
}

void SegmentItem::keyPressEvent(QKeyEvent* event) {
  if (!moveAmongChoices(*this, *event)) {
    AccessibleItem::keyPressEvent(event);
  }
}

void SegmentItem::itemChange(ItemChange change, const ItemChangeData& data) {
  AccessibleItem::itemChange(change, data);
  if (change == ItemParentHasChanged) {
    updateTabStop();
  }
}

void SegmentItem::updateTabStop() {
  if (parentItem()) {
    updateTabStopAmong(*parentItem());
  }
}
