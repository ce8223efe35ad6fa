#pragma once

#include "platform/coregraphics/CGGeometry.h"
#include "platform/uikit/UIColor.h"
#include "platform/uikit/UIFont.h"

/// The measures of a grouped settings list, in points: the one place to correct them.
namespace metrics {

inline constexpr CGFloat kRowHeight = 44;
/// What a row that is higher than that keeps free above and below its texts, and between them.
inline constexpr CGFloat kRowTextMargin = 11;
inline constexpr CGFloat kRowTextGap = 3;
inline constexpr CGFloat kSeparatorInset = 15;
inline constexpr CGFloat kTextInset = 15;
inline constexpr CGFloat kIconSize = 29;
inline constexpr CGFloat kTitleDetailGap = 5;
/// What a title keeps of the row when title and value do not both fit.
inline constexpr double kTitleShare = 0.6;
/// What an indicator takes from the content view, its margin included.
inline constexpr CGFloat kDisclosureWidth = 33;
inline constexpr CGFloat kCheckmarkWidth = 39;
inline constexpr CGFloat kAccessoryMargin = 15;

inline constexpr CGFloat kGroupGap = 35;
inline constexpr CGFloat kHeaderTextGap = 7;
inline constexpr CGFloat kFooterTextGap = 7;
/// What keeps a footer's text from the next group's header.
inline constexpr CGFloat kFooterBottomGap = 10;

/// Height of a badge with text of the usual size.
inline constexpr CGFloat kBadgeHeight = 22;
inline constexpr CGFloat kBadgePadding = 7;

inline constexpr CGFloat kActivityIndicatorSize = 20;

inline constexpr UIFontTextStyle kTitleStyle = UIFontTextStyle::kBody;
inline constexpr UIFontTextStyle kDetailStyle = UIFontTextStyle::kBody;
inline constexpr UIFontTextStyle kHeaderStyle = UIFontTextStyle::kFootnote;
inline constexpr UIFontTextStyle kBadgeStyle = UIFontTextStyle::kSubheadline;

inline constexpr UIColor kTitleColor = UIColor::labelColor();
inline constexpr UIColor kDetailColor{142.0 / 255, 142.0 / 255, 147.0 / 255, 1,
                                      UISystemColor::kSecondaryLabel};
inline constexpr UIColor kHeaderColor{109.0 / 255, 109.0 / 255, 114.0 / 255, 1,
                                      UISystemColor::kHeaderLabel};
inline constexpr UIColor kTintColor{0, 122.0 / 255, 1, 1, UISystemColor::kTint};
inline constexpr UIColor kBadgeColor{1, 59.0 / 255, 48.0 / 255, 1, UISystemColor::kRed};

}  // namespace metrics
