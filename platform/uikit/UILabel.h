#pragma once

#include <string>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UIFont.h"
#include "platform/uikit/UIView.h"

/// The numbers are the platform's; rows store them.
enum class NSTextAlignment { kLeft = 0, kCenter = 1, kRight = 2, kNatural = 4 };

/// Read-only text. Main thread.
class PLATFORM_API UILabel : public Subclass<UILabel, UIView> {
 public:
  static const ClassOf<UILabel> classObject;

  const std::string& text() const { return text_; }
  void setText(std::string text);
  UIColor textColor() const { return textColor_; }
  void setTextColor(UIColor color);
  UIFont font() const { return font_; }
  void setFont(UIFont font);
  NSTextAlignment textAlignment() const { return textAlignment_; }
  void setTextAlignment(NSTextAlignment alignment);
  /// The most lines that are shown; 0 for any number. Text that does not fit ends in an ellipsis.
  int numberOfLines() const { return numberOfLines_; }
  void setNumberOfLines(int lines);

  /// The size of the text when it may be that wide.
  CGSize sizeThatFits(CGFloat width) const;

 private:
  std::string text_;
  UIColor textColor_ = UIColor::labelColor();
  UIFont font_;
  NSTextAlignment textAlignment_ = NSTextAlignment::kNatural;
  int numberOfLines_ = 1;
};
