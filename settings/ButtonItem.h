#pragma once

#include <QUrl>

#include "settings/ViewItem.h"

/// Shows a UIButton.
class ButtonItem : public ViewItem {
  Q_OBJECT
  QML_ELEMENT
  /// Empty for no picture.
  Q_PROPERTY(QUrl source READ source NOTIFY lookChanged)

 public:
  using ViewItem::ViewItem;

  QUrl source() const { return source_; }

  QAccessible::Role accessibleRole() const override { return QAccessible::Button; }
  QString accessibleName() const override { return name_; }
  bool isPressable() const override;
  void press() override;

 protected:
  void takeOverLook() override;

 private:
  QUrl source_;
  QString name_;
};
