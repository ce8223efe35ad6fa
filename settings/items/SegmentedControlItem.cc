#include "settings/items/SegmentedControlItem.h"

#include "platform/uikit/UISegmentedControl.h"

void SegmentedControlItem::choose(int segment) {
  if (auto* control = viewAs<UISegmentedControl>()) {
    const auto keptAlive = control->shared_from_this();
    control->chooseSegment(segment);
  }
}

void SegmentedControlItem::takeOverLook() {
  const auto& control = *viewAs<UISegmentedControl>();
  setEnabled(control.isEnabled() && control.isUserInteractionEnabled());
  name_ = QString::fromStdString(control.accessibilityLabel());
  selected_ = control.selectedSegmentIndex();
  QStringList titles;
  for (const auto& title : control.titles()) {
    titles.append(QString::fromStdString(title));
  }
  if (titles != titles_) {
    titles_ = titles;
    emit titlesChanged();
  }
}
