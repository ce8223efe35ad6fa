#include "settings/navigation/BarButton.h"

#include <QFileInfo>
#include <QSizeF>

#include "platform/uikit/UIBarButtonItem.h"
#include "settings/appearance/Theme.h"
#include "settings/pictures/PictureProvider.h"

namespace {

// A picture has no words; without a label the button is called after its file.
QString nameOf(const UIBarButtonItem& item) {
  if (!item.accessibilityLabel().empty()) {
    return QString::fromStdString(item.accessibilityLabel());
  }
  const auto& image = item.image();
  return image ? QFileInfo(QString::fromStdString(image->name())).completeBaseName() : QString();
}

}  // namespace

void BarButton::show(const std::shared_ptr<UIBarButtonItem>& item) {
  const auto image = item ? item->image() : nullptr;
  // The bar draws the shape of its pictures in its own tint.
  const QUrl picture = image ? PictureProvider::urlFor(*image, Theme::tint()) : QUrl();
  const QSizeF size = image ? QSizeF(image->size().width, image->size().height) : QSizeF();
  const QString name = item ? nameOf(*item) : QString();
  const bool enabled = item && item->isEnabled();
  if (item == item_ && picture == picture_ && size == pictureSize_ && name == name_ &&
      enabled == enabled_) {
    return;
  }
  item_ = item;
  picture_ = picture;
  pictureSize_ = size;
  name_ = name;
  enabled_ = enabled;
  emit changed();
}

void BarButton::press() {
  if (const auto item = item_) {
    item->press();
  }
}
