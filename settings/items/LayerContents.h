#pragma once

#include <QPointer>
#include <QQuickItem>
#include <qqmlintegration.h>

#include "settings/items/ImageItem.h"

/// The picture in the layer of an image view, scaled to the item. The software renderer draws it
/// from the frameworks' own pixels, without a copy of them. It is told of each picture by the
/// view's item and not by a binding: the script engine would keep the pictures that went through it
/// until it next collects its garbage, a whole animation's frames.
class LayerContents : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(ImageItem* view READ view WRITE setView NOTIFY viewChanged)

 public:
  explicit LayerContents(QQuickItem* parent = nullptr);

  ImageItem* view() const { return view_; }
  void setView(ImageItem* view);

 signals:
  void viewChanged();

 protected:
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  void takeOverContents();

  QPointer<ImageItem> view_;
  ImageItem::PixelsHandle contents_;
  bool stale_ = true;  // the node shows other contents
};
