#pragma once

#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSTableCell.h"
#include "platform/uikit/UITextField.h"

/// A row in which the user types: the field shows the row's value and hands what was typed to the
/// row's setter when editing ends. Main thread.
class PLATFORM_API PSEditableTableCell : public Subclass<PSEditableTableCell, PSTableCell> {
 public:
  static const ClassOf<PSEditableTableCell> classObject;

  bool initWithStyleReuseIdentifierSpecifier(
      UITableViewCellStyle style, std::string reuseIdentifier,
      const std::shared_ptr<PSSpecifier>& specifier) override;

  const std::shared_ptr<UITextField>& textField() const { return textField_; }

  /// Action of the field.
  void textFieldDidEndEditing();

  void layoutSubviews() override;

 protected:
  CGSize trailingSize() const override;

 private:
  std::shared_ptr<UITextField> textField_;
};
