#include "platform/makers/TBPSCreditsHeaderTableCell.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/uikit/metrics.h"

constexpr ClassOf<TBPSCreditsHeaderTableCell> TBPSCreditsHeaderTableCell::classObject{
    "TBPSCreditsHeaderTableCell"};

namespace {

constexpr CGFloat kMargin = 20;
constexpr CGFloat kGap = 16;
constexpr CGFloat kHeadSide = 80;
constexpr CGFloat kNameGap = 6;

std::shared_ptr<UIImage> pictureAt(const PSSpecifier& row, std::string_view key) {
  const auto path = row.textForKey(key);
  return path ? UIImage::imageWithContentsOfFile(*path) : nullptr;
}

}  // namespace

bool TBPSCreditsHeaderTableCell::initWithStyleReuseIdentifierSpecifier(
    UITableViewCellStyle /*style*/, std::string reuseIdentifier,
    const std::shared_ptr<PSSpecifier>& specifier) {
  if (!PSTableCell::initWithStyleReuseIdentifierSpecifier(UITableViewCellStyle::kDefault,
                                                          std::move(reuseIdentifier), specifier)) {
    return false;
  }
  textLabel()->setHidden(true);
  logo_ = allocInit<UIImageView>();
  logo_->setImage(pictureAt(*specifier, "logo"));
  contentView()->addSubview(logo_);
  const std::array<std::string, 2> keys{"head1", "head2"};
  for (std::size_t index = 0; index < heads_.size(); ++index) {
    auto& head = heads_[index];
    head.picture = allocInit<UIImageView>();
    head.picture->setImage(pictureAt(*specifier, keys[index]));
    contentView()->addSubview(head.picture);
    head.name = allocInit<UILabel>();
    head.name->setFont(UIFont::preferredFontForTextStyle(metrics::kBadgeStyle));
    head.name->setTextColor(metrics::kHeaderColor);
    head.name->setTextAlignment(NSTextAlignment::kCenter);
    if (head.picture->image()) {
      head.name->setText(specifier->textForKey(keys[index] + "Name").value_or(""));
    }
    contentView()->addSubview(head.name);
  }
  return true;
}

CGSize TBPSCreditsHeaderTableCell::logoSizeForWidth(CGFloat width) const {
  const CGSize size = logo_->image() ? logo_->image()->size() : CGSizeZero;
  const CGFloat room = std::max<CGFloat>(0, width - 2 * kMargin);
  return size.width > room ? CGSize{room, size.height * room / size.width} : size;
}

CGFloat TBPSCreditsHeaderTableCell::nameHeight() const {
  CGFloat height = 0;
  for (const auto& head : heads_) {
    const CGSize name = head.name->sizeThatFits(std::numeric_limits<CGFloat>::max());
    height = std::max(height, std::ceil(name.height));
  }
  return height;
}

CGFloat TBPSCreditsHeaderTableCell::headsHeight() const {
  const bool any = std::ranges::any_of(
      heads_, [](const Head& head) { return head.picture->image() != nullptr; });
  return any ? kHeadSide + kNameGap + nameHeight() : 0;
}

CGFloat TBPSCreditsHeaderTableCell::preferredHeightForWidth(CGFloat width) {
  const CGFloat logo = logoSizeForWidth(width).height;
  const CGFloat heads = headsHeight();
  const CGFloat gap = logo > 0 && heads > 0 ? kGap : 0;
  return std::max(metrics::kRowHeight, std::ceil(2 * kMargin + logo + gap + heads));
}

void TBPSCreditsHeaderTableCell::layoutSubviews() {
  PSTableCell::layoutSubviews();
  const CGFloat width = bounds().size.width;
  const CGSize logo = logoSizeForWidth(width);
  logo_->setFrame(CGRectMake((width - logo.width) / 2, kMargin, logo.width, logo.height));
  // Each head stands in the middle of its share of the row.
  const auto count = std::ranges::count_if(
      heads_, [](const Head& head) { return head.picture->image() != nullptr; });
  const CGFloat share =
      count > 0 ? std::min(width - 2 * metrics::kTextInset, 280.0) / static_cast<CGFloat>(count)
                : 0;
  const CGFloat top = kMargin + logo.height + (logo.height > 0 ? kGap : 0);
  CGFloat left = (width - share * static_cast<CGFloat>(count)) / 2;
  for (const auto& head : heads_) {
    if (!head.picture->image()) {
      head.picture->setFrame(CGRectZero);
      head.name->setFrame(CGRectZero);
      continue;
    }
    head.picture->setFrame(CGRectMake(left + (share - kHeadSide) / 2, top, kHeadSide, kHeadSide));
    head.name->setFrame(CGRectMake(left, top + kHeadSide + kNameGap, share, nameHeight()));
    left += share;
  }
}
