#pragma once

#include <QString>
#include <QUrl>
#include <memory>

#include "settings/mirror/ViewItem.h"

class CGImage;

/// Shows a UIImageView.
class ImageItem : public ViewItem {
  Q_OBJECT
  QML_ELEMENT
  /// The picture's file, where the view has no pixels; empty for no picture.
  Q_PROPERTY(QUrl source READ source NOTIFY lookChanged)

 public:
  using PixelsHandle = std::shared_ptr<const CGImage>;

  using ViewItem::ViewItem;

  /// The picture's pixels, where the view has them.
  const PixelsHandle& contents() const { return contents_; }
  QUrl source() const { return source_; }

  /// A picture is told of where it is described in words.
  QAccessible::Role accessibleRole() const override;
  QString accessibleName() const override { return name_; }

 protected:
  void takeOverLook() override;

 private:
  PixelsHandle contents_;
  QUrl source_;
  QString name_;
};
