#include "settings/items/LayerContents.h"

#include <QImage>
#include <QQuickWindow>
#include <QSGImageNode>
#include <algorithm>

#include "platform/coregraphics/CGImage.h"
#include "settings/pictures/PixelImage.h"

LayerContents::LayerContents(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
}

void LayerContents::setView(ImageItem* view) {
  if (view == view_) {
    return;
  }
  if (view_) {
    view_->disconnect(this);
  }
  view_ = view;
  if (view_) {
    connect(view_, &ImageItem::lookChanged, this, &LayerContents::takeOverContents);
  }
  takeOverContents();
  emit viewChanged();
}

void LayerContents::takeOverContents() {
  const auto contents = view_ ? view_->contents() : nullptr;
  if (contents == contents_) {
    return;
  }
  contents_ = contents;
  stale_ = true;
  update();
}

QSGNode* LayerContents::updatePaintNode(QSGNode* node, UpdatePaintNodeData* /*data*/) {
  auto* picture = static_cast<QSGImageNode*>(node);
  if (stale_) {
    const QImage image = contents_ ? pixelImage(contents_->pixels()) : QImage();
    if (image.isNull()) {
      delete picture;
      return nullptr;
    }
    if (!picture) {
      picture = window()->createImageNode();
      picture->setOwnsTexture(true);
      picture->setFiltering(QSGTexture::Linear);
    }
    picture->setTexture(window()->createTextureFromImage(
        image, image.hasAlphaChannel() ? QQuickWindow::TextureHasAlphaChannel
                                       : QQuickWindow::TextureIsOpaque));
    stale_ = false;
  }
  if (picture) {
    picture->setRect(boundingRect());
  }
  return picture;
}
