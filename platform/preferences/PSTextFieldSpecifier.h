#pragma once

#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSSpecifier.h"
#include "platform/uikit/UITextField.h"

/// A row whose cell may be a text field. Main thread.
class PLATFORM_API PSTextFieldSpecifier : public Subclass<PSTextFieldSpecifier, PSSpecifier> {
 public:
  static const ClassOf<PSTextFieldSpecifier> classObject;

  /// As PSSpecifier's.
  static std::shared_ptr<PSTextFieldSpecifier> preferenceSpecifierNamedTargetSetGetDetailCellEdit(
      std::string name, const std::shared_ptr<NSObject>& target, std::string_view set,
      std::string_view get, std::string_view detail, PSCellType cell, std::string_view edit);

  /// Shown in the field while it is empty.
  const std::string& placeholder() const { return placeholder_; }
  void setPlaceholder(std::string placeholder) { placeholder_ = std::move(placeholder); }

  UIKeyboardType keyboardType() const { return keyboardType_; }
  UITextAutocapitalizationType autoCaps() const { return autoCaps_; }
  UITextAutocorrectionType autoCorrection() const { return autoCorrection_; }
  void setKeyboardTypeAutoCapsAutoCorrection(UIKeyboardType keyboard,
                                             UITextAutocapitalizationType capitals,
                                             UITextAutocorrectionType correction);

 private:
  std::string placeholder_;
  UIKeyboardType keyboardType_ = UIKeyboardType::kDefault;
  UITextAutocapitalizationType autoCaps_ = UITextAutocapitalizationType::kSentences;
  UITextAutocorrectionType autoCorrection_ = UITextAutocorrectionType::kDefault;
};
