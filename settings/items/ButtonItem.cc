#include "settings/items/ButtonItem.h"

#include <QFileInfo>

#include "platform/uikit/UIButton.h"
#include "settings/accessibility/choiceGroup.h"
#include "settings/pictures/PictureProvider.h"

ButtonItem::ButtonItem(QQuickItem* parent) : ViewItem(parent) {
  connect(this, &QQuickItem::activeFocusChanged, this, &ButtonItem::updateTabStop);
}

QAccessible::Role ButtonItem::accessibleRole() const {
  return chosen_ ? QAccessible::RadioButton : QAccessible::Button;
}

void ButtonItem::addAccessibleState(QAccessible::State& state) const {
  ViewItem::addAccessibleState(state);
  state.checkable = chosen_.has_value();
  state.checked = chosen_.value_or(false);
}

bool ButtonItem::isPressable() const {
  const auto* button = viewAs<UIButton>();
  return button && button->isEnabled() && button->isUserInteractionEnabled();
}

void ButtonItem::press() {
  if (auto* button = viewAs<UIButton>()) {
    const auto keptAlive = button->shared_from_this();
    button->sendActionsForControlEvents(UIControlEvent::kTouchUpInside);
  }
}

void ButtonItem::takeOverLook() {
  const auto& button = *viewAs<UIButton>();
  setEnabled(button.isEnabled());
  const auto& image = button.image();
  const bool isTemplate = image && image->renderingMode() == UIImageRenderingMode::kAlwaysTemplate;
  source_ = image ? PictureProvider::urlFor(*image, isTemplate ? tint() : QColor()) : QUrl();
  name_ = QString::fromStdString(button.accessibilityLabel());
  if (name_.isEmpty() && image) {
    // A button without words of its own is called after its picture.
    name_ = QFileInfo(QString::fromStdString(image->name())).completeBaseName();
  }
  if (button.accessibilitySelected() != chosen_) {
    chosen_ = button.accessibilitySelected();
    notifyAccessibleChange(QAccessible::StateChanged);
  }
  updateTabStop();
}

void ButtonItem::keyPressEvent(QKeyEvent* event) {
  if (!chosen_ || !moveAmongChoices(*this, *event)) {
    ViewItem::keyPressEvent(event);
  }
}

void ButtonItem::itemChange(ItemChange change, const ItemChangeData& data) {
  ViewItem::itemChange(change, data);
  if (change == ItemParentHasChanged) {
    updateTabStop();
  }
}

void ButtonItem::updateTabStop() {
  if (!chosen_) {
    setActiveFocusOnTab(isEnabled());
  } else if (parentItem()) {
    updateTabStopAmong(*parentItem());
  }
}
