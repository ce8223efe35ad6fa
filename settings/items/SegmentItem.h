#pragma once

#include <QString>

#include "settings/accessibility/AccessibleItem.h"

/// One segment of a segmented control: a radio button.
class SegmentItem : public AccessibleItem {
  Q_OBJECT
  QML_ELEMENT
  /// Its place in the control, from 0.
  Q_PROPERTY(int number MEMBER number_ FINAL)
  Q_PROPERTY(QString title MEMBER title_ FINAL)
  Q_PROPERTY(bool chosen READ isChosen WRITE setChosen NOTIFY chosenChanged FINAL)

 public:
  explicit SegmentItem(QQuickItem* parent = nullptr);

  bool isChosen() const { return chosen_; }
  void setChosen(bool chosen);

  QAccessible::Role accessibleRole() const override { return QAccessible::RadioButton; }
  QString accessibleName() const override { return title_; }
  void addAccessibleState(QAccessible::State& state) const override;
  bool isPressable() const override { return true; }
  void press() override;

 signals:
  void chosenChanged();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  void updateTabStop();

  QString title_;
  int number_ = 0;
  bool chosen_ = false;
};
