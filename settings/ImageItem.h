#pragma once

#include <QUrl>

#include "settings/ViewItem.h"

/// Shows a UIImageView.
class ImageItem : public ViewItem {
  Q_OBJECT
  QML_ELEMENT
  /// Empty for no picture.
  Q_PROPERTY(QUrl source READ source NOTIFY lookChanged)

 public:
  using ViewItem::ViewItem;

  QUrl source() const { return source_; }

 protected:
  void takeOverLook() override;

 private:
  QUrl source_;
};
