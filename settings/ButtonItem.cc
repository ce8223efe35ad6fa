#include "settings/ButtonItem.h"

#include <QFileInfo>

#include "platform/uikit/UIButton.h"
#include "settings/PictureProvider.h"

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
  // A button without words of its own is called after its picture.
  name_ = image ? QFileInfo(QString::fromStdString(image->name())).completeBaseName() : QString();
}
