#pragma once

#include <QRgb>

#include "platform/uikit/UIColor.h"
#include "platform/uikit/metrics.h"

/// Every colour that is the window's own or the system's, in light and in dark surroundings: the
/// one place to correct them. The system's are in the light as the frameworks have them.
namespace palette {

struct Shades {
  QRgb light;
  QRgb dark;
};

constexpr QRgb rgbOf(const UIColor& color) {
  // Rounded: components are given as parts of 255.
  const auto part = [](double component) { return (static_cast<int>(component * 510) + 1) / 2; };
  return qRgba(part(color.red), part(color.green), part(color.blue), part(color.alpha));
}

inline constexpr Shades kText{rgbOf(UIColor::labelColor()), 0xffffffff};
inline constexpr Shades kSecondaryText{rgbOf(metrics::kDetailColor), 0xff98989f};
inline constexpr Shades kHeaderText{rgbOf(metrics::kHeaderColor), 0xff98989f};
inline constexpr Shades kRow{rgbOf(UIColor::rowBackgroundColor()), 0xff1c1c1e};
inline constexpr Shades kTint{rgbOf(metrics::kTintColor), 0xff0a84ff};
inline constexpr Shades kRed{rgbOf(metrics::kBadgeColor), 0xffff453a};

inline constexpr Shades kPage{0xffefeff4, 0xff000000};
inline constexpr Shades kSeparator{0xffc8c7cc, 0xff38383a};
/// Laid over what is pressed: over a plain row it gives #d9d9d9, in the dark #3a3a3c.
inline constexpr Shades kPressed{0x26000000, 0x22ffffff};
inline constexpr Shades kChevron{0xffc7c7cc, 0xff5a5a5f};
inline constexpr Shades kPlaceholder{0xffc7c7cd, 0xff7c7c82};
inline constexpr Shades kScrollBar{0x80000000, 0x80ffffff};
inline constexpr Shades kBar{0xfff8f8f8, 0xff161618};
inline constexpr Shades kBarLine{0xffc4c4c4, 0xff38383a};
inline constexpr Shades kSegmentChosen{0xffffffff, 0xffffffff};
inline constexpr Shades kWheel{0xff8e8e93, 0xff8e8e93};
inline constexpr Shades kSheet{0xfff8f8f8, 0xff2c2c2e};
inline constexpr Shades kSheetLine{0xffb5b5b5, 0xff48484a};
inline constexpr Shades kDim{0x66000000, 0x99000000};
/// What darkens a page that another slides over, and the shadow of that other.
inline constexpr Shades kSlideDim{0xff000000, 0xff000000};
inline constexpr Shades kSlideShadow{0x28000000, 0x28000000};
/// Web pages are written for white paper.
inline constexpr Shades kWebPaper{0xffffffff, 0xffffffff};

}  // namespace palette
