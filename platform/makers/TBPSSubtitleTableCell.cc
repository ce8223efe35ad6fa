#include "platform/makers/TBPSSubtitleTableCell.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/uikit/metrics.h"

constexpr ClassOf<TBPSSubtitleTableCell> TBPSSubtitleTableCell::classObject{
    "TBPSSubtitleTableCell"};

namespace {

constexpr CGFloat kTextMargin = 10;
constexpr CGFloat kLineGap = 3;

CGFloat heightOf(const UILabel& label, CGFloat width) {
  return std::ceil(label.sizeThatFits(width).height);
}

}  // namespace

bool TBPSSubtitleTableCell::initWithStyleReuseIdentifierSpecifier(
    UITableViewCellStyle /*style*/, std::string reuseIdentifier,
    const std::shared_ptr<PSSpecifier>& specifier) {
  if (!PSTableCell::initWithStyleReuseIdentifierSpecifier(UITableViewCellStyle::kDefault,
                                                          std::move(reuseIdentifier), specifier)) {
    return false;
  }
  textLabel()->setNumberOfLines(0);
  subtitle_ = allocInit<UILabel>();
  subtitle_->setFont(UIFont::preferredFontForTextStyle(metrics::kHeaderStyle));
  subtitle_->setTextColor(metrics::kHeaderColor);
  subtitle_->setNumberOfLines(0);
  subtitle_->setText(specifier->textForKey("detailText").value_or(""));
  contentView()->addSubview(subtitle_);
  return true;
}

CGFloat TBPSSubtitleTableCell::preferredHeightForWidth(CGFloat width) {
  const CGFloat text = width - 2 * metrics::kTextInset;
  return std::max(metrics::kRowHeight, 2 * kTextMargin + heightOf(*textLabel(), text) + kLineGap +
                                           heightOf(*subtitle_, text));
}

void TBPSSubtitleTableCell::layoutSubviews() {
  PSTableCell::layoutSubviews();
  const CGFloat width = bounds().size.width - 2 * metrics::kTextInset;
  const CGFloat title = heightOf(*textLabel(), width);
  textLabel()->setFrame(CGRectMake(metrics::kTextInset, kTextMargin, width, title));
  subtitle_->setFrame(CGRectMake(metrics::kTextInset, kTextMargin + title + kLineGap, width,
                                 heightOf(*subtitle_, width)));
}
