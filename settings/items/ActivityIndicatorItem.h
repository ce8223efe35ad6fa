#pragma once

#include "settings/mirror/ViewItem.h"

/// Shows a UIActivityIndicatorView.
class ActivityIndicatorItem : public ViewItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(bool animating READ isAnimating NOTIFY lookChanged)

 public:
  using ViewItem::ViewItem;

  bool isAnimating() const { return animating_; }

  QAccessible::Role accessibleRole() const override { return QAccessible::Animation; }
  QString accessibleName() const override { return tr("Loading"); }
  void addAccessibleState(QAccessible::State& state) const override { state.busy = animating_; }

 protected:
  void takeOverLook() override;

 private:
  bool animating_ = false;
};
