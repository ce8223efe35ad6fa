#include "settings/items/LabelItem.h"

#include "platform/uikit/UILabel.h"
#include "platform/uikit/UITableViewHeaderFooterView.h"
#include "settings/accessibility/SpokenText.h"
#include "settings/appearance/SystemFont.h"

QAccessible::Role LabelItem::accessibleRole() const {
  return text_.trimmed().isEmpty() ? QAccessible::NoRole : QAccessible::StaticText;
}

QString LabelItem::accessibleName() const {
  return spokenText(text_);
}

void LabelItem::takeOverLook() {
  const auto& label = *viewAs<UILabel>();
  const QString text = QString::fromStdString(label.text());
  const bool changed = text != text_;
  text_ = text;
  font_ = system_font::font(label.font());
  textColor_ = toQColor(label.textColor());
  lines_ = label.numberOfLines();
  // Headers and footers are as high as their text.
  shrinks_ = lines_ == 0 && !cast<UITableViewHeaderFooterView>(label.superview());
  switch (label.textAlignment()) {
    case NSTextAlignment::kCenter:
      alignment_ = Qt::AlignHCenter;
      break;
    case NSTextAlignment::kRight:
      alignment_ = Qt::AlignRight;
      // Blanks at the end would push the text away from the edge that it stands at.
      while (text_.endsWith(u' ')) {
        text_.chop(1);
      }
      break;
    case NSTextAlignment::kLeft:
    case NSTextAlignment::kNatural:
      alignment_ = Qt::AlignLeft;
      break;
  }
  if (changed && accessibleRole() != QAccessible::NoRole) {
    notifyAccessibleChange(QAccessible::NameChanged);
  }
}
