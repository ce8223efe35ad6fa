#pragma once

#include <QString>
#include <QStringList>

#include "settings/mirror/ViewItem.h"

/// Shows a UISegmentedControl. Its segments are SegmentItems.
class SegmentedControlItem : public ViewItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QStringList titles READ titles NOTIFY titlesChanged)
  /// -1 while no segment is selected.
  Q_PROPERTY(int selected READ selected NOTIFY lookChanged)

 public:
  using ViewItem::ViewItem;

  const QStringList& titles() const { return titles_; }
  int selected() const { return selected_; }

  /// The user has chosen that segment.
  void choose(int segment);

  QAccessible::Role accessibleRole() const override { return QAccessible::Grouping; }
  QString accessibleName() const override { return name_; }

 signals:
  void titlesChanged();

 protected:
  void takeOverLook() override;

 private:
  QStringList titles_;
  QString name_;
  int selected_ = -1;
};
