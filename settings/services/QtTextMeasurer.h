#pragma once

#include "platform/services.h"

/// Measures texts in the font in which the window draws them.
class QtTextMeasurer : public TextMeasurer {
 public:
  CGSize sizeOfText(std::string_view text, const UIFont& font, CGFloat width) override;
};
