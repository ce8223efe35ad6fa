#pragma once

#include <QFont>
#include <QString>

#include "settings/mirror/ViewItem.h"

/// Shows a UILabel.
class LabelItem : public ViewItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QString text READ text NOTIFY lookChanged)
  Q_PROPERTY(QFont font READ font NOTIFY lookChanged)
  Q_PROPERTY(QColor textColor READ textColor NOTIFY lookChanged)
  Q_PROPERTY(int alignment READ alignment NOTIFY lookChanged)
  /// 0 for any number.
  Q_PROPERTY(int lines READ lines NOTIFY lookChanged)
  /// Whether a text that is too long for its place is set smaller before any of it is cut.
  Q_PROPERTY(bool shrinks READ shrinks NOTIFY lookChanged)

 public:
  using ViewItem::ViewItem;

  QString text() const { return text_; }
  QFont font() const { return font_; }
  QColor textColor() const { return textColor_; }
  int alignment() const { return alignment_; }
  int lines() const { return lines_; }
  bool shrinks() const { return shrinks_; }

  QAccessible::Role accessibleRole() const override;
  QString accessibleName() const override;

 protected:
  void takeOverLook() override;

 private:
  QString text_;
  QFont font_;
  QColor textColor_;
  int alignment_ = Qt::AlignLeft;
  int lines_ = 1;
  bool shrinks_ = false;
};
