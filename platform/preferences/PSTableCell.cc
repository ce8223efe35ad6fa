#include "platform/preferences/PSTableCell.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/uikit/metrics.h"

constexpr ClassOf<PSTableCell> PSTableCell::classObject{"PSTableCell"};

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

// Grows with its text.
CGFloat badgeHeight(const UILabel& badge) {
  constexpr double kUsualSize = 15;
  return std::round(metrics::kBadgeHeight * badge.font().pointSize / kUsualSize);
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

CGFloat PSTableCell::preferredHeightForWidth(CGFloat width) {
  return standardHeightForWidth(width);
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
  badge_->setFont(UIFont::preferredFontForTextStyle(metrics::kBadgeStyle));
  badge_->setTextColor(UIColor::whiteColor());
  badge_->setTextAlignment(NSTextAlignment::kCenter);
  badge_->setBackgroundColor(metrics::kBadgeColor);
  badge_->setCornerRadius(badgeHeight(*badge_) / 2);
  contentView()->addSubview(badge_);
}

CGSize PSTableCell::trailingSize() const {
  if (!badge_) {
    return {};
  }
  // A badge is a pill, never narrower than high.
  constexpr CGFloat kUnbounded = std::numeric_limits<CGFloat>::max();
  const CGFloat height = badgeHeight(*badge_);
  const CGFloat text = std::ceil(badge_->sizeThatFits(kUnbounded).width);
  const CGFloat pill = std::max(height, text + 2 * metrics::kBadgePadding);
  return {pill + metrics::kTitleDetailGap, height};
}

void PSTableCell::placeTrailing(CGRect room) {
  if (badge_) {
    room.origin.x += metrics::kTitleDetailGap;
    room.size.width -= metrics::kTitleDetailGap;
    badge_->setFrame(room);
  }
}
