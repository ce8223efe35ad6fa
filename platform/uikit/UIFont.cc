#include "platform/uikit/UIFont.h"

#include <array>
#include <cstddef>

#include "platform/uikit/UIApplication.h"

namespace {

constexpr std::size_t kCategories = static_cast<std::size_t>(UIContentSizeCategory::kLargest) + 1;
using Sizes = std::array<double, kCategories>;

// From the smallest category to the largest. Only what is read in full grows in the last five.
constexpr Sizes kBodySizes{14, 15, 16, 17, 19, 21, 23, 28, 33, 40, 47, 53};
constexpr Sizes kSubheadlineSizes{12, 13, 14, 15, 17, 19, 21, 21, 21, 21, 21, 21};
constexpr Sizes kFootnoteSizes{12, 12, 12, 13, 15, 17, 19, 19, 19, 19, 19, 19};

const Sizes& sizesOf(UIFontTextStyle style) {
  switch (style) {
    case UIFontTextStyle::kSubheadline:
      return kSubheadlineSizes;
    case UIFontTextStyle::kFootnote:
      return kFootnoteSizes;
    case UIFontTextStyle::kBody:
      break;
  }
  return kBodySizes;
}

}  // namespace

UIFont UIFont::preferredFontForTextStyle(UIFontTextStyle style) {
  const auto category = UIApplication::sharedApplication().preferredContentSizeCategory();
  return systemFontOfSize(sizesOf(style)[static_cast<std::size_t>(category)]);
}
