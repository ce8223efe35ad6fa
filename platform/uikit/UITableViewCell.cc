#include "platform/uikit/UITableViewCell.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/uikit/metrics.h"

constexpr ClassDescription UITableViewCell::classObject{
    "UITableViewCell", &UIView::classObject, &allocObject<UITableViewCell>, {}};

namespace {

constexpr CGFloat kUnbounded = std::numeric_limits<CGFloat>::max();

CGFloat naturalWidth(const UILabel& label) {
  return std::ceil(label.sizeThatFits(kUnbounded).width);
}

}  // namespace

bool UITableViewCell::initWithStyleReuseIdentifier(UITableViewCellStyle style,
                                                   std::string reuseIdentifier) {
  if (!initWithFrame(CGRectZero)) {
    return false;
  }
  reuseIdentifier_ = std::move(reuseIdentifier);
  setBackgroundColor(UIColor::whiteColor());
  contentView_ = allocInit<UIView>();
  addSubview(contentView_);
  imageView_ = allocInit<UIImageView>();
  contentView_->addSubview(imageView_);
  textLabel_ = allocInit<UILabel>();
  textLabel_->setFont(metrics::kTitleFont);
  textLabel_->setTextColor(metrics::kTitleColor);
  contentView_->addSubview(textLabel_);
  if (style == UITableViewCellStyle::kValue1) {
    detailTextLabel_ = allocInit<UILabel>();
    detailTextLabel_->setFont(metrics::kDetailFont);
    detailTextLabel_->setTextColor(metrics::kDetailColor);
    detailTextLabel_->setTextAlignment(NSTextAlignment::kRight);
    contentView_->addSubview(detailTextLabel_);
  }
  return true;
}

void UITableViewCell::setAccessoryType(UITableViewCellAccessoryType type) {
  accessoryType_ = type;
  setNeedsLayout();
}

void UITableViewCell::setAccessoryView(const std::shared_ptr<UIView>& view) {
  if (accessoryContainer_) {
    accessoryContainer_->removeFromSuperview();
    accessoryContainer_.reset();
  }
  accessoryView_ = view;
  if (view) {
    accessoryContainer_ = allocInit<UIView>();
    accessoryContainer_->addSubview(view);
    addSubview(accessoryContainer_);
  }
  setNeedsLayout();
}

void UITableViewCell::setSeparatorInset(UIEdgeInsets inset) {
  separatorInset_ = inset;
  setNeedsDisplay();
}

void UITableViewCell::setLayoutMargins(UIEdgeInsets margins) {
  layoutMargins_ = margins;
  setNeedsDisplay();
}

void UITableViewCell::setPreservesSuperviewLayoutMargins(bool preserves) {
  preservesMargins_ = preserves;
  setNeedsDisplay();
}

void UITableViewCell::setPosition(UITableViewCellPosition position) {
  if (position != position_) {
    position_ = position;
    setNeedsDisplay();
  }
}

CGFloat UITableViewCell::accessoryWidth() const {
  if (accessoryView_) {
    return accessoryView_->frame().size.width + metrics::kAccessoryMargin;
  }
  switch (accessoryType_) {
    case UITableViewCellAccessoryType::kDisclosureIndicator:
      return metrics::kDisclosureWidth;
    case UITableViewCellAccessoryType::kCheckmark:
      return metrics::kCheckmarkWidth;
    case UITableViewCellAccessoryType::kNone:
      break;
  }
  return 0;
}

void UITableViewCell::layoutSubviews() {
  UIView::layoutSubviews();
  const CGSize size = bounds().size;
  const CGFloat accessory = accessoryWidth();
  contentView_->setFrame(CGRectMake(0, 0, size.width - accessory, size.height));
  if (accessoryContainer_) {
    const CGSize view = accessoryView_->frame().size;
    accessoryContainer_->setFrame(CGRectMake(
        size.width - accessory, (size.height - view.height) / 2, view.width, view.height));
  }

  CGFloat left = metrics::kTextInset;
  if (imageView_->image()) {
    imageView_->setFrame(CGRectMake(left, (size.height - metrics::kIconSize) / 2,
                                    metrics::kIconSize, metrics::kIconSize));
    left += metrics::kIconSize + metrics::kTextInset;
  }
  const CGFloat right = contentView_->bounds().size.width -
                        (accessory > 0 ? 0 : metrics::kTextInset) - trailingWidth();
  const CGFloat room = std::max<CGFloat>(0, right - left);

  CGFloat title = naturalWidth(*textLabel_);
  CGFloat detail = detailTextLabel_ ? naturalWidth(*detailTextLabel_) : 0;
  const CGFloat gap = title > 0 && detail > 0 ? metrics::kTitleDetailGap : 0;
  if (title + gap + detail > room) {
    // The value gives way first, down to what the title leaves it of the row.
    const CGFloat forTitle =
        std::min(title, std::max(room * metrics::kTitleShare, room - gap - detail));
    title = detail > 0 ? forTitle : room;
    detail = std::clamp<CGFloat>(room - gap - title, 0, detail);
  }
  textLabel_->setFrame(CGRectMake(left, 0, title, size.height));
  if (detailTextLabel_) {
    detailTextLabel_->setFrame(CGRectMake(right - detail, 0, detail, size.height));
  }
}
