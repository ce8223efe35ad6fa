#include "settings/items/ImageItem.h"

#include "platform/uikit/UIImageView.h"
#include "settings/pictures/PictureProvider.h"

QAccessible::Role ImageItem::accessibleRole() const {
  return name_.isEmpty() ? QAccessible::NoRole : QAccessible::Graphic;
}

void ImageItem::takeOverLook() {
  auto& layer = viewAs<UIImageView>()->layer();
  layer.displayIfNeeded();
  contents_ = layer.contents();
  const auto image = contents_ ? nullptr : viewAs<UIImageView>()->image();
  const bool isTemplate = image && image->renderingMode() == UIImageRenderingMode::kAlwaysTemplate;
  source_ = image ? PictureProvider::urlFor(*image, isTemplate ? tint() : QColor()) : QUrl();
  name_ = QString::fromStdString(viewAs<UIImageView>()->accessibilityLabel());
}
