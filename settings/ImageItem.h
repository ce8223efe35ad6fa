#pragma once

#include <QUrl>

#include "settings/LayerContents.h"
#include "settings/ViewItem.h"

/// Shows a UIImageView.
class ImageItem : public ViewItem {
  Q_OBJECT
  QML_ELEMENT
  /// The picture's pixels, where the view has them.
  Q_PROPERTY(PixelsHandle contents READ contents NOTIFY lookChanged)
  /// The picture's file otherwise; empty for no picture.
  Q_PROPERTY(QUrl source READ source NOTIFY lookChanged)

 public:
  using ViewItem::ViewItem;

  const PixelsHandle& contents() const { return contents_; }
  QUrl source() const { return source_; }

 protected:
  void takeOverLook() override;

 private:
  PixelsHandle contents_;
  QUrl source_;
};
