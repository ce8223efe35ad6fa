#include "platform/uikit/UITableViewHeaderFooterView.h"

#include <cmath>

#include "platform/uikit/metrics.h"

constexpr ClassOf<UITableViewHeaderFooterView> UITableViewHeaderFooterView::classObject{
    "UITableViewHeaderFooterView"};

bool UITableViewHeaderFooterView::initWithEdge(UITableViewSectionEdge edge) {
  if (!initWithFrame(CGRectZero)) {
    return false;
  }
  edge_ = edge;
  textLabel_ = allocInit<UILabel>();
  UIFont font = UIFont::preferredFontForTextStyle(metrics::kHeaderStyle);
  font.capitals = edge == UITableViewSectionEdge::kHeader;
  textLabel_->setFont(font);
  textLabel_->setTextColor(metrics::kHeaderColor);
  textLabel_->setNumberOfLines(0);
  addSubview(textLabel_);
  return true;
}

CGFloat UITableViewHeaderFooterView::textHeight(CGFloat width) const {
  return std::ceil(textLabel_->sizeThatFits(width - 2 * metrics::kTextInset).height);
}

CGFloat UITableViewHeaderFooterView::preferredHeightForWidth(CGFloat width, bool isFirst) const {
  constexpr CGFloat kHalfGap = metrics::kGroupGap / 2;
  const CGFloat text = textHeight(width);
  if (edge_ == UITableViewSectionEdge::kFooter) {
    return text > 0 ? metrics::kFooterTextGap + text + metrics::kFooterBottomGap : kHalfGap;
  }
  const CGFloat above = isFirst ? metrics::kGroupGap : kHalfGap;
  return text > 0 ? above + text + metrics::kHeaderTextGap : above;
}

void UITableViewHeaderFooterView::layoutSubviews() {
  UIView::layoutSubviews();
  const CGSize size = bounds().size;
  const CGFloat text = textHeight(size.width);
  const CGFloat y = edge_ == UITableViewSectionEdge::kHeader
                        ? size.height - metrics::kHeaderTextGap - text
                        : metrics::kFooterTextGap;
  textLabel_->setFrame(
      CGRectMake(metrics::kTextInset, y, size.width - 2 * metrics::kTextInset, text));
}
