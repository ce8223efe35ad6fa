#include "platform/uikit/UITableViewCell.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/uikit/UIApplication.h"
#include "platform/uikit/metrics.h"

constexpr ClassOf<UITableViewCell> UITableViewCell::classObject{"UITableViewCell"};

namespace {

constexpr CGFloat kUnbounded = std::numeric_limits<CGFloat>::max();

CGSize naturalSize(const UILabel& label) {
  const CGSize size = label.sizeThatFits(kUnbounded);
  return {std::ceil(size.width), std::ceil(size.height)};
}

CGFloat heightIn(const UILabel& label, CGFloat width) {
  return std::ceil(label.sizeThatFits(width).height);
}

bool areTextsEnlarged() {
  return UIApplication::sharedApplication().preferredContentSizeCategory() >
         UIContentSizeCategory::kLarge;
}

}  // namespace

bool UITableViewCell::initWithStyleReuseIdentifier(UITableViewCellStyle style,
                                                   std::string reuseIdentifier) {
  if (!initWithFrame(CGRectZero)) {
    return false;
  }
  reuseIdentifier_ = std::move(reuseIdentifier);
  setBackgroundColor(UIColor::rowBackgroundColor());
  contentView_ = allocInit<UIView>();
  addSubview(contentView_);
  imageView_ = allocInit<UIImageView>();
  contentView_->addSubview(imageView_);
  textLabel_ = allocInit<UILabel>();
  textLabel_->setFont(UIFont::preferredFontForTextStyle(metrics::kTitleStyle));
  textLabel_->setTextColor(metrics::kTitleColor);
  contentView_->addSubview(textLabel_);
  if (style == UITableViewCellStyle::kValue1) {
    detailTextLabel_ = allocInit<UILabel>();
    detailTextLabel_->setFont(UIFont::preferredFontForTextStyle(metrics::kDetailStyle));
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

CGFloat UITableViewCell::TextPlaces::gap() const {
  return title.width > 0 && detail.width > 0 ? metrics::kTitleDetailGap : 0;
}

CGFloat UITableViewCell::TextPlaces::height() const {
  if (!stacked) {
    return std::max({title.height, detail.height, trailing.height});
  }
  CGFloat sum = 0;
  for (const CGFloat part : {title.height, detail.height, trailing.height}) {
    sum += part + (sum > 0 && part > 0 ? metrics::kRowTextGap : 0);
  }
  return sum;
}

UITableViewCell::TextPlaces UITableViewCell::textPlacesForWidth(CGFloat width) const {
  const CGFloat accessory = accessoryWidth();
  const CGFloat content = width - accessory;
  TextPlaces places;
  places.left =
      metrics::kTextInset + (imageView_->image() ? metrics::kIconSize + metrics::kTextInset : 0);
  places.right = content - (accessory > 0 ? 0 : metrics::kTextInset);
  places.title = naturalSize(*textLabel_);
  places.detail = detailTextLabel_ ? naturalSize(*detailTextLabel_) : CGSizeZero;
  places.trailing = trailingSize();
  const CGFloat room = std::max<CGFloat>(0, places.right - places.left);
  if (areTextsEnlarged() &&
      places.title.width + places.gap() + places.detail.width + places.trailing.width > room) {
    places.stacked = true;
    places.title.height = heightIn(*textLabel_, room);
    places.detail.height = detailTextLabel_ ? heightIn(*detailTextLabel_, room) : 0;
  }
  return places;
}

CGFloat UITableViewCell::standardHeightForWidth(CGFloat width) const {
  if (!areTextsEnlarged()) {
    return metrics::kRowHeight;
  }
  const CGFloat texts = textPlacesForWidth(width).height();
  return std::max(metrics::kRowHeight, texts + 2 * metrics::kRowTextMargin);
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
  if (imageView_->image()) {
    imageView_->setFrame(CGRectMake(metrics::kTextInset, (size.height - metrics::kIconSize) / 2,
                                    metrics::kIconSize, metrics::kIconSize));
  }
  const auto places = textPlacesForWidth(size.width);
  setStacked(places.stacked);
  if (places.stacked) {
    placeStacked(places, size.height);
  } else {
    placeInLine(places, size.height);
  }
}

void UITableViewCell::setStacked(bool stacked) {
  if (std::exchange(stacked_, stacked) == stacked) {
    return;
  }
  const int lines = stacked ? 0 : 1;
  textLabel_->setNumberOfLines(lines);
  if (detailTextLabel_) {
    detailTextLabel_->setNumberOfLines(lines);
    detailTextLabel_->setTextAlignment(stacked ? NSTextAlignment::kNatural
                                               : NSTextAlignment::kRight);
  }
}

void UITableViewCell::placeInLine(const TextPlaces& places, CGFloat height) {
  // What is behind them leaves the title its room, unless that were more than two thirds of the
  // row.
  const CGSize content = contentView_->bounds().size;
  CGSize trailing = places.trailing;
  trailing.width = std::min(
      trailing.width, std::max(content.width / 3, places.right - places.left - places.title.width));
  const CGFloat right = places.right - trailing.width;
  const CGFloat room = std::max<CGFloat>(0, right - places.left);
  CGFloat title = places.title.width;
  CGFloat detail = places.detail.width;
  const CGFloat gap = places.gap();
  if (title + gap + detail > room) {
    // The value gives way first, down to what the title leaves it of the row.
    const CGFloat forTitle =
        std::min(title, std::max(room * metrics::kTitleShare, room - gap - detail));
    title = detail > 0 ? forTitle : room;
    detail = std::clamp<CGFloat>(room - gap - title, 0, detail);
  }
  textLabel_->setFrame(CGRectMake(places.left, 0, title, height));
  if (detailTextLabel_) {
    detailTextLabel_->setFrame(CGRectMake(right - detail, 0, detail, height));
  }
  placeTrailing(CGRectMake(right, (height - trailing.height) / 2, trailing.width, trailing.height));
}

void UITableViewCell::placeStacked(const TextPlaces& places, CGFloat height) {
  const CGFloat room = places.right - places.left;
  CGFloat y = (height - places.height()) / 2;
  const auto next = [&](CGFloat part) {
    const CGFloat top = y;
    y += part > 0 ? part + metrics::kRowTextGap : 0;
    return top;
  };
  textLabel_->setFrame(
      CGRectMake(places.left, next(places.title.height), room, places.title.height));
  if (detailTextLabel_) {
    detailTextLabel_->setFrame(
        CGRectMake(places.left, next(places.detail.height), room, places.detail.height));
  }
  // Its gap is for a line that it shares.
  const CGFloat width = std::min(room + metrics::kTitleDetailGap, places.trailing.width);
  placeTrailing(CGRectMake(places.left - metrics::kTitleDetailGap, next(places.trailing.height),
                           width, places.trailing.height));
}
