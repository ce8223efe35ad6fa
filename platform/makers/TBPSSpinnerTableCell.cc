#include "platform/makers/TBPSSpinnerTableCell.h"

#include <utility>

constexpr ClassOf<TBPSSpinnerTableCell> TBPSSpinnerTableCell::classObject{"TBPSSpinnerTableCell"};

bool TBPSSpinnerTableCell::initWithStyleReuseIdentifierSpecifier(
    UITableViewCellStyle style, std::string reuseIdentifier,
    const std::shared_ptr<PSSpecifier>& specifier) {
  if (!PSTableCell::initWithStyleReuseIdentifierSpecifier(style, std::move(reuseIdentifier),
                                                          specifier)) {
    return false;
  }
  spinner_ = allocInit<UIActivityIndicatorView>();
  contentView()->addSubview(spinner_);
  spinner_->startAnimating();
  return true;
}

void TBPSSpinnerTableCell::layoutSubviews() {
  PSTableCell::layoutSubviews();
  const CGSize content = contentView()->bounds().size;
  const CGSize size = spinner_->bounds().size;
  spinner_->setFrame(CGRectMake((content.width - size.width) / 2,
                                (content.height - size.height) / 2, size.width, size.height));
}
