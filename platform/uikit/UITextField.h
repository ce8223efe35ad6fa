#pragma once

#include <memory>
#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIControl.h"
#include "platform/uikit/UIFont.h"

/// The numbers are the platform's; panes pass them.
enum class UIKeyboardType { kDefault = 0, kPhonePad = 5 };
enum class UITextAutocapitalizationType { kNone = 0, kWords = 1, kSentences = 2 };
enum class UITextAutocorrectionType { kDefault = 0, kNo = 1, kYes = 2 };

/// One line of text that the user edits.
///
/// Editing begins when the field gets the focus. It ends when the field loses it, on Return, or
/// when its page is left: if the user has changed the text by then, `kEditingDidEnd` is sent, once.
/// Main thread.
class PLATFORM_API UITextField : public Subclass<UITextField, UIControl> {
 public:
  static const ClassOf<UITextField> classObject;
  ~UITextField() override;

  const std::string& text() const { return text_; }
  /// Shows another text; this is not an edit of the user's.
  void setText(std::string text);
  const std::string& placeholder() const { return placeholder_; }
  void setPlaceholder(std::string placeholder);
  UIFont font() const { return font_; }
  UIColor textColor() const { return UIColor::labelColor(); }

  UIKeyboardType keyboardType() const { return keyboardType_; }
  UITextAutocapitalizationType autocapitalizationType() const { return autocapitalizationType_; }
  UITextAutocorrectionType autocorrectionType() const { return autocorrectionType_; }
  void setKeyboard(UIKeyboardType keyboard, UITextAutocapitalizationType capitals,
                   UITextAutocorrectionType correction);

  /// The field that has the focus in this process, or null.
  static std::shared_ptr<UITextField> firstResponder();
  bool isFirstResponder() const;
  /// Takes the focus; the field that had it ends editing first. False, and nothing happens, while
  /// the field is disabled.
  bool becomeFirstResponder();
  /// Gives the focus up and ends editing. True when the field does not have the focus afterwards.
  bool resignFirstResponder();

  /// For the host: the user has changed the text to this.
  void edit(std::string text);
  /// For the host: the user has pressed Return.
  void pressReturn();

 private:
  void commitEdit();

  std::string text_;
  std::string placeholder_;
  UIFont font_ = UIFont::preferredFontForTextStyle(UIFontTextStyle::kBody);
  UIKeyboardType keyboardType_ = UIKeyboardType::kDefault;
  UITextAutocapitalizationType autocapitalizationType_ = UITextAutocapitalizationType::kSentences;
  UITextAutocorrectionType autocorrectionType_ = UITextAutocorrectionType::kDefault;
  bool edited_ = false;
};
