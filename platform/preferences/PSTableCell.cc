#include "platform/preferences/PSTableCell.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/uikit/metrics.h"

constexpr ClassDescription PSTableCell::classObject{
    "PSTableCell", &UITableViewCell::classObject, &allocObject<PSTableCell>, {}};

namespace {

constexpr std::array<std::pair<std::string_view, PSCellType>, 7> kCellTypes{{
    {"PSDefaultCell", PSCellType::kDefault},
    {"PSGroupCell", PSCellType::kGroup},
    {"PSLinkCell", PSCellType::kLink},
    {"PSListItemCell", PSCellType::kListItem},
    {"PSTitleValueCell", PSCellType::kTitleValue},
    {"PSEditTextCell", PSCellType::kEditText},
    {"PSButtonCell", PSCellType::kButton},
}};

// A row shows texts and whole numbers; other kinds have no text of their own.
std::string shownText(const std::optional<PropertyListValue>& value) {
  if (const auto text = textOrNothing(value)) {
    return *text;
  }
  const auto* number = value ? value->get<std::int64_t>() : nullptr;
  return number ? std::to_string(*number) : std::string();
}

}  // namespace

PSCellType PSTableCell::cellTypeFromString(std::string_view name) {
  const auto* const found =
      std::ranges::find(kCellTypes, name, &std::pair<std::string_view, PSCellType>::first);
  return found == kCellTypes.end() ? PSCellType::kDefault : found->second;
}

std::string_view PSTableCell::stringFromCellType(PSCellType type) {
  const auto* const found =
      std::ranges::find(kCellTypes, type, &std::pair<std::string_view, PSCellType>::second);
  return found == kCellTypes.end() ? "PSDefaultCell" : found->first;
}

UITableViewCellStyle PSTableCell::styleForCellType(PSCellType type) {
  switch (type) {
    case PSCellType::kLink:
    case PSCellType::kListItem:
    case PSCellType::kTitleValue:
      return UITableViewCellStyle::kValue1;
    default:
      return UITableViewCellStyle::kDefault;
  }
}

bool PSTableCell::initWithStyleReuseIdentifierSpecifier(
    UITableViewCellStyle style, std::string reuseIdentifier,
    const std::shared_ptr<PSSpecifier>& specifier) {
  if (!initWithStyleReuseIdentifier(style, std::move(reuseIdentifier))) {
    return false;
  }
  specifier_ = specifier;
  if (!specifier) {
    return true;
  }
  textLabel()->setText(specifier->name());
  if (specifier->cellType() == PSCellType::kButton) {
    textLabel()->setTextColor(metrics::kTintColor);
  }
  if (detailTextLabel()) {
    detailTextLabel()->setText(shownText(specifier->value()));
  }
  if (specifier->cellType() == PSCellType::kLink) {
    setAccessoryType(UITableViewCellAccessoryType::kDisclosureIndicator);
  }
  const auto icon = specifier->propertyForKey("iconImage");
  if (const auto* object = icon ? std::get_if<std::shared_ptr<NSObject>>(&*icon) : nullptr) {
    imageView()->setImage(cast<UIImage>(*object));
  }
  showBadge(specifier->textForKey("badgeString").value_or(""));
  return true;
}

CGFloat PSTableCell::preferredHeightForWidth(CGFloat /*width*/) {
  return metrics::kRowHeight;
}

bool PSTableCell::isSelectable() const {
  return specifier_ && specifier_->cellType() != PSCellType::kEditText &&
         (!specifier_->detail().empty() || !specifier_->action().empty());
}

void PSTableCell::showBadge(const std::string& text) {
  if (text.empty()) {
    return;
  }
  badge_ = allocInit<UILabel>();
  badge_->setText(text);
  badge_->setFont(metrics::kBadgeFont);
  badge_->setTextColor(UIColor::whiteColor());
  badge_->setTextAlignment(NSTextAlignment::kCenter);
  badge_->setBackgroundColor(metrics::kBadgeColor);
  badge_->setCornerRadius(metrics::kBadgeHeight / 2);
  contentView()->addSubview(badge_);
}

CGFloat PSTableCell::trailingWidth() const {
  if (!badge_) {
    return 0;
  }
  // A badge is a pill, never narrower than high. It leaves the title its room, unless that were
  // more than two thirds of the row.
  constexpr CGFloat kUnbounded = std::numeric_limits<CGFloat>::max();
  const CGFloat text = std::ceil(badge_->sizeThatFits(kUnbounded).width);
  const CGFloat pill = std::max(metrics::kBadgeHeight, text + 2 * metrics::kBadgePadding);
  const CGFloat content = contentView()->bounds().size.width;
  const CGFloat icon = imageView()->image() ? metrics::kIconSize + metrics::kTextInset : 0;
  const CGFloat title = std::ceil(textLabel()->sizeThatFits(kUnbounded).width);
  const CGFloat room = std::max(content / 3, content - metrics::kTextInset - icon - title);
  return std::min(pill + metrics::kTitleDetailGap, room);
}

void PSTableCell::layoutSubviews() {
  UITableViewCell::layoutSubviews();
  if (badge_) {
    const CGSize content = contentView()->bounds().size;
    const CGFloat width = trailingWidth() - metrics::kTitleDetailGap;
    const CGFloat margin =
        accessoryType() == UITableViewCellAccessoryType::kNone ? metrics::kTextInset : 0;
    badge_->setFrame(CGRectMake(content.width - margin - width,
                                (content.height - metrics::kBadgeHeight) / 2, width,
                                metrics::kBadgeHeight));
  }
}
