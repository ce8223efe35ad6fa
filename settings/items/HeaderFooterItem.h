#pragma once

#include "settings/mirror/ViewItem.h"

/// Shows a UITableViewHeaderFooterView: its label does the drawing, this element is what assistive
/// technology is told of.
class HeaderFooterItem : public ViewItem {
  Q_OBJECT
  QML_ELEMENT

 public:
  using ViewItem::ViewItem;

  QAccessible::Role accessibleRole() const override;
  QString accessibleName() const override { return name_; }
  bool speaksFor(const AccessibleItem& /*element*/) const override { return true; }

 protected:
  void takeOverLook() override;

 private:
  QString name_;
  bool isHeader_ = false;
};
