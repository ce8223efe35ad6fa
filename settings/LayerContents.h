#pragma once

#include <QMetaType>
#include <QQuickItem>
#include <memory>
#include <qqmlintegration.h>

class CGImage;

using PixelsHandle = std::shared_ptr<const CGImage>;
Q_DECLARE_METATYPE(PixelsHandle)

/// The picture in a view's layer, scaled to the item. The software renderer draws it from the
/// frameworks' own pixels, without a copy of them.
class LayerContents : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  /// Null for nothing.
  Q_PROPERTY(PixelsHandle contents READ contents WRITE setContents NOTIFY contentsChanged)

 public:
  explicit LayerContents(QQuickItem* parent = nullptr);

  const PixelsHandle& contents() const { return contents_; }
  void setContents(const PixelsHandle& contents);

 signals:
  void contentsChanged();

 protected:
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  PixelsHandle contents_;
  bool stale_ = true;  // the node shows other contents
};
