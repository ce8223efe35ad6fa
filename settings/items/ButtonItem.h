#pragma once

#include <QUrl>
#include <optional>

#include "settings/mirror/ViewItem.h"

/// Shows a UIButton.
class ButtonItem : public ViewItem {
  Q_OBJECT
  QML_ELEMENT
  /// Empty for no picture.
  Q_PROPERTY(QUrl source READ source NOTIFY lookChanged)

 public:
  explicit ButtonItem(QQuickItem* parent = nullptr);

  QUrl source() const { return source_; }

  /// One of several alternatives is a radio button.
  QAccessible::Role accessibleRole() const override;
  QString accessibleName() const override { return name_; }
  void addAccessibleState(QAccessible::State& state) const override;
  bool isPressable() const override;
  void press() override;

 protected:
  void takeOverLook() override;
  void keyPressEvent(QKeyEvent* event) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  void updateTabStop();

  QUrl source_;
  QString name_;
  std::optional<bool> chosen_;  // nothing where it is no alternative
};
