#pragma once

#include "platform/services.h"
#include "platform/uikit/UIFont.h"

/// Measures text by a fixed table of letter widths, so that layouts without a screen are the same
/// on every machine. Lines break at blanks, and within words that are wider than the line.
class TableTextMeasurer : public TextMeasurer {
 public:
  CGSize sizeOfText(std::string_view text, const UIFont& font, CGFloat width) override;
};
