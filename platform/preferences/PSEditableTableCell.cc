#include "platform/preferences/PSEditableTableCell.h"

#include <cmath>
#include <utility>

#include "platform/foundation/method.h"
#include "platform/preferences/PSTextFieldSpecifier.h"
#include "platform/services.h"
#include "platform/uikit/metrics.h"

namespace {

constexpr auto kMethods = methods<PSEditableTableCell>(
    method<&PSEditableTableCell::textFieldDidEndEditing>("textFieldDidEndEditing"));

}  // namespace

constexpr ClassOf<PSEditableTableCell> PSEditableTableCell::classObject{"PSEditableTableCell",
                                                                        kMethods};

bool PSEditableTableCell::initWithStyleReuseIdentifierSpecifier(
    UITableViewCellStyle style, std::string reuseIdentifier,
    const std::shared_ptr<PSSpecifier>& specifier) {
  if (!PSTableCell::initWithStyleReuseIdentifierSpecifier(style, std::move(reuseIdentifier),
                                                          specifier)) {
    return false;
  }
  textField_ = allocInit<UITextField>();
  textField_->setText(textOrNothing(specifier->value()).value_or(""));
  if (const auto field = cast<PSTextFieldSpecifier>(specifier)) {
    textField_->setPlaceholder(field->placeholder());
    textField_->setKeyboard(field->keyboardType(), field->autoCaps(), field->autoCorrection());
  }
  textField_->addTargetActionForControlEvents(shared_from_this(), "textFieldDidEndEditing",
                                              UIControlEvent::kEditingDidEnd);
  contentView()->addSubview(textField_);
  return true;
}

void PSEditableTableCell::textFieldDidEndEditing() {
  specifier()->setValue(textField_->text());
}

CGSize PSEditableTableCell::trailingSize() const {
  // The field takes the width that is left, and a line's height.
  return {0, std::ceil(services().text->sizeOfText("0", textField_->font(), 0).height)};
}

void PSEditableTableCell::layoutSubviews() {
  PSTableCell::layoutSubviews();
  const CGSize content = contentView()->bounds().size;
  const CGRect title = textLabel()->frame();
  const CGFloat left = title.size.width > 0
                           ? title.origin.x + title.size.width + metrics::kTextInset
                           : metrics::kTextInset;
  textField_->setFrame(
      CGRectMake(left, 0, content.width - metrics::kTextInset - left, content.height));
}
